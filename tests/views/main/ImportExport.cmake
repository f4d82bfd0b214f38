stampix_add_test(TestNativeSettingsFileDialogs
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/TestNativeSettingsFileDialogs.cpp
    LIBS stampix_views LABELS views)

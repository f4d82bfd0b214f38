stampix_add_test(TestSettingsFileHelper SOURCES ${CMAKE_CURRENT_LIST_DIR}/TestSettingsFileHelper.cpp
    LIBS stampix_core LABELS model)

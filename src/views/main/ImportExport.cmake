# The dialogs of the settings import and export commands.
target_sources(stampix_views PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/NativeSettingsFileDialogs.h
    ${CMAKE_CURRENT_LIST_DIR}/NativeSettingsFileDialogs.cpp)

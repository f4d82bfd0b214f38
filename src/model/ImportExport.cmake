# Settings import and export: the helper behind the two File menu commands.
target_sources(stampix_core PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/SettingsFileDialogs.h
    ${CMAKE_CURRENT_LIST_DIR}/SettingsFileHelper.h
    ${CMAKE_CURRENT_LIST_DIR}/SettingsFileHelper.cpp)

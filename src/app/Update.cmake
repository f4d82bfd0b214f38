# Update checking behind "Check for Updates...": the program's own appcast
# reader, version comparison, feed download and message boxes.
target_sources(stampix_shell PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/AppcastItem.h
    ${CMAKE_CURRENT_LIST_DIR}/AppcastReader.h
    ${CMAKE_CURRENT_LIST_DIR}/AppcastReader.cpp
    ${CMAKE_CURRENT_LIST_DIR}/MessageBoxUpdateDialogs.h
    ${CMAKE_CURRENT_LIST_DIR}/MessageBoxUpdateDialogs.cpp
    ${CMAKE_CURRENT_LIST_DIR}/UpdateDialogs.h
    ${CMAKE_CURRENT_LIST_DIR}/UpdateFeedClient.h
    ${CMAKE_CURRENT_LIST_DIR}/UpdateFeedClient.cpp
    ${CMAKE_CURRENT_LIST_DIR}/UpdaterViewModel.h
    ${CMAKE_CURRENT_LIST_DIR}/UpdaterViewModel.cpp
    ${CMAKE_CURRENT_LIST_DIR}/VersionComparator.h
    ${CMAKE_CURRENT_LIST_DIR}/VersionComparator.cpp)

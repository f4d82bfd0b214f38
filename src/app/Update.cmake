# Update checking behind "Check for Updates...": the program's own appcast
# reader, version comparison, feed download and message boxes.
target_sources(stampix_shell PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/AppcastItem.h
    ${CMAKE_CURRENT_LIST_DIR}/AppcastReader.h
    ${CMAKE_CURRENT_LIST_DIR}/AppcastReader.cpp
    ${CMAKE_CURRENT_LIST_DIR}/MessageBoxUpdateDialogs.h
    ${CMAKE_CURRENT_LIST_DIR}/MessageBoxUpdateDialogs.cpp
    ${CMAKE_CURRENT_LIST_DIR}/UpdateCheckSchedule.h
    ${CMAKE_CURRENT_LIST_DIR}/UpdateCheckSchedule.cpp
    ${CMAKE_CURRENT_LIST_DIR}/UpdateDialogs.h
    ${CMAKE_CURRENT_LIST_DIR}/UpdateFeedClient.h
    ${CMAKE_CURRENT_LIST_DIR}/UpdateFeedClient.cpp
    ${CMAKE_CURRENT_LIST_DIR}/UpdaterViewModel.h
    ${CMAKE_CURRENT_LIST_DIR}/UpdaterViewModel.cpp
    ${CMAKE_CURRENT_LIST_DIR}/VersionComparator.h
    ${CMAKE_CURRENT_LIST_DIR}/VersionComparator.cpp)

# On the Mac the Sparkle framework, when the build finds it, does the whole job.
if(APPLE)
    find_library(SPARKLE_FRAMEWORK Sparkle)
    if(SPARKLE_FRAMEWORK)
        set(sparkle_updater ${CMAKE_CURRENT_LIST_DIR}/SparkleUpdater.mm)
        set_source_files_properties(${sparkle_updater} PROPERTIES
            LANGUAGE CXX COMPILE_OPTIONS "-xobjective-c++;-fobjc-arc")
        target_sources(stampix_shell PRIVATE
            ${CMAKE_CURRENT_LIST_DIR}/SparkleUpdater.h ${sparkle_updater})
        target_link_libraries(stampix_shell PUBLIC ${SPARKLE_FRAMEWORK})
        target_compile_definitions(stampix_shell PUBLIC STAMPIX_HAVE_SPARKLE)
    endif()
endif()

# The application object, its windows and menu commands.
target_sources(stampix_shell PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/MainWindow.cpp
    ${CMAKE_CURRENT_LIST_DIR}/MainWindow.h
    ${CMAKE_CURRENT_LIST_DIR}/StampixApp.cpp
    ${CMAKE_CURRENT_LIST_DIR}/StampixApp.h)
if(APPLE)
    # The title bar is hidden through AppKit; the file is Objective-C++ built by
    # the C++ compiler, so the project needs no extra language.
    set(mac_title_bar ${CMAKE_CURRENT_LIST_DIR}/MacTitleBar.mm)
    set_source_files_properties(${mac_title_bar} PROPERTIES
        LANGUAGE CXX COMPILE_OPTIONS "-xobjective-c++")
    target_sources(stampix_shell PRIVATE ${CMAKE_CURRENT_LIST_DIR}/MacTitleBar.h ${mac_title_bar})
    target_link_libraries(stampix_shell PRIVATE "-framework AppKit")
endif()

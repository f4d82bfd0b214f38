stampix_add_test(TestVersionComparator SOURCES ${CMAKE_CURRENT_LIST_DIR}/TestVersionComparator.cpp
    LIBS stampix_shell LABELS app)
stampix_add_test(TestAppcastReader
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/TestAppcastReader.cpp ${CMAKE_CURRENT_LIST_DIR}/AppcastFeeds.h
    LIBS stampix_shell LABELS app)
stampix_add_test(TestUpdaterViewModel
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/TestUpdaterViewModel.cpp ${CMAKE_CURRENT_LIST_DIR}/AppcastFeeds.h
    LIBS stampix_shell stampix_loopback LABELS app)
stampix_add_test(TestMessageBoxUpdateDialogs
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/TestMessageBoxUpdateDialogs.cpp
    LIBS stampix_shell stampix_testsupport LABELS app)
stampix_add_test(TestUpdateCheckSchedule
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/TestUpdateCheckSchedule.cpp LIBS stampix_shell LABELS app)

# The About window. Included from the main and the settings folder (the
# settings window's "Over" page links to the same website); the guard keeps
# the sources listed once.
include_guard(GLOBAL)
target_sources(stampix_views PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/AboutView.cpp
    ${CMAKE_CURRENT_LIST_DIR}/AboutWindow.cpp)

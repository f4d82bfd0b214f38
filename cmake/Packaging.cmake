# Installation as a desktop application (binary, .desktop entry, icons in the
# hicolor theme, AppStream metadata) and the Debian package built by CPack.
# The program's own install() rule lives with its target in src/app.
include(GNUInstallDirs)

set(STAMPIX_APP_ID "app.stampix.Stampix")
set(STAMPIX_PACKAGE_MAINTAINER "Stampix maintainers <maintainers@stampix.app>" CACHE STRING
    "Maintainer field of the Debian package")
# SOURCE_DATE_EPOCH, when set, makes the date (and so the package) reproducible.
string(TIMESTAMP STAMPIX_RELEASE_DATE "%Y-%m-%d" UTC)

set(packaging_dir ${CMAKE_SOURCE_DIR}/packaging)
set(packaging_out ${CMAKE_BINARY_DIR}/packaging)

install(FILES ${packaging_dir}/${STAMPIX_APP_ID}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)

configure_file(${packaging_dir}/${STAMPIX_APP_ID}.metainfo.xml.in
               ${packaging_out}/${STAMPIX_APP_ID}.metainfo.xml @ONLY)
install(FILES ${packaging_out}/${STAMPIX_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# The icon: the scalable SVG as drawn, plus PNG sizes rendered from it.
set(STAMPIX_ICON_SVG ${CMAKE_SOURCE_DIR}/src/views/common/icons/stampix.svg)
set(STAMPIX_ICON_SIZES 16 24 32 48 64 128 256 512)
set(icon_theme_dir ${CMAKE_INSTALL_DATADIR}/icons/hicolor)

if(EXISTS ${STAMPIX_ICON_SVG})
    find_package(Qt6 6.4 REQUIRED COMPONENTS Gui Svg)
    add_executable(stampix-render-icon ${packaging_dir}/render-icon.cpp)
    target_link_libraries(stampix-render-icon PRIVATE Qt6::Gui Qt6::Svg stampix_options)

    set(icon_pngs)
    foreach(size IN LISTS STAMPIX_ICON_SIZES)
        set(png ${packaging_out}/icons/${size}x${size}/${STAMPIX_APP_ID}.png)
        add_custom_command(
            OUTPUT ${png}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${packaging_out}/icons/${size}x${size}
            COMMAND stampix-render-icon ${STAMPIX_ICON_SVG} ${size} ${png}
            DEPENDS stampix-render-icon ${STAMPIX_ICON_SVG}
            COMMENT "Rendering the ${size}x${size} application icon"
            VERBATIM)
        list(APPEND icon_pngs ${png})
        install(FILES ${png} DESTINATION ${icon_theme_dir}/${size}x${size}/apps)
    endforeach()
    add_custom_target(stampix_icons ALL DEPENDS ${icon_pngs})

    install(FILES ${STAMPIX_ICON_SVG} DESTINATION ${icon_theme_dir}/scalable/apps
            RENAME ${STAMPIX_APP_ID}.svg)
else()
    message(WARNING "Application icon ${STAMPIX_ICON_SVG} not found; it will not be installed")
endif()

# Debian package: `cpack` in the build directory (or `cpack -G DEB`).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME stampix)
set(CPACK_PACKAGE_VENDOR "Stampix")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${STAMPIX_PACKAGE_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Print product labels from Kalmora Online on network label printers")
set(CPACK_PACKAGE_DESCRIPTION "Stampix loads a company's product catalogue from the \
Kalmora Online invoicing service, shows it in a searchable, sortable table and prints ZPL \
labels for the ticked products on Zebra-compatible network label printers.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${STAMPIX_PACKAGE_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The linked libraries' packages come from dpkg-shlibdeps. The SVG plugins, Qt's
# Dutch translation and the label preview's font are loaded at run time rather
# than linked, so their packages are named here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, qt6-translations-l10n, fonts-liberation")
include(CPack)

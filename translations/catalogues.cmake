# Included where nuboshot_app is made. The catalogues,
# translations/nuboshot_LANG.ts, are kept up to date by lupdate whenever a
# source changes (the build writes them back here), compiled by
# lrelease and built into the program under :/i18n. nuboshot_en.ts holds
# only the English plural forms ("A shortcut does not work", "3 shortcuts…").
# Debian's qt6-l10n-tools has the two programs without Qt's CMake package.
find_program(LUPDATE lupdate HINTS ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_LIBEXECS}
    ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS} NO_DEFAULT_PATH REQUIRED)
find_program(LRELEASE lrelease HINTS ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_LIBEXECS}
    ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS} NO_DEFAULT_PATH REQUIRED)
set(NUBOSHOT_LANGUAGES de fr es pt_BR zh_CN)
set(catalogues)
foreach(language IN LISTS NUBOSHOT_LANGUAGES)
    list(APPEND catalogues ${PROJECT_SOURCE_DIR}/translations/nuboshot_${language}.ts)
endforeach()
set(english ${PROJECT_SOURCE_DIR}/translations/nuboshot_en.ts)
# The engine's messages that reach the windows are translated too.
set(translated_folders ${PROJECT_SOURCE_DIR}/NuboShot ${PROJECT_SOURCE_DIR}/NuboShotApp)
file(GLOB_RECURSE translated_sources CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/NuboShot/*.cpp ${PROJECT_SOURCE_DIR}/NuboShot/*.h
    ${PROJECT_SOURCE_DIR}/NuboShotApp/*.cpp ${PROJECT_SOURCE_DIR}/NuboShotApp/*.h)
set(stamp ${CMAKE_BINARY_DIR}/translations/catalogues-updated)
add_custom_command(OUTPUT ${stamp}
    COMMAND ${LUPDATE} -silent -locations none -no-obsolete ${translated_folders} -ts ${catalogues}
    COMMAND ${LUPDATE} -silent -locations none -no-obsolete -pluralonly
            ${translated_folders} -ts ${english}
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${translated_sources}
    COMMENT "Updating the translation catalogues")
set(compiled)
foreach(catalogue IN LISTS catalogues english)
    get_filename_component(name ${catalogue} NAME_WE)
    set(qm ${CMAKE_BINARY_DIR}/translations/${name}.qm)
    add_custom_command(OUTPUT ${qm}
        COMMAND ${LRELEASE} -silent -nounfinished -removeidentical ${catalogue} -qm ${qm}
        DEPENDS ${stamp} ${catalogue})
    list(APPEND compiled ${qm})
endforeach()
qt_add_resources(nuboshot_app catalogues PREFIX /i18n BASE ${CMAKE_BINARY_DIR}/translations
    FILES ${compiled})

# What is made for an installation: man pages, the manual as a PDF, the texts that a Debian package has.
find_program(HELP2MAN help2man REQUIRED)
find_program(PARSE_CHANGELOG dpkg-parsechangelog REQUIRED)

# newest(FIELD VARIABLE): of the newest entry of the changelog.
function(newest field variable)
  execute_process(COMMAND ${PARSE_CHANGELOG} -l ${PROJECT_SOURCE_DIR}/packaging/changelog -S ${field}
    OUTPUT_VARIABLE value OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(${variable} ${value} PARENT_SCOPE)
endfunction()
newest(Timestamp changed_at)
execute_process(COMMAND date --utc --date=@${changed_at} +%F OUTPUT_VARIABLE changed_on OUTPUT_STRIP_TRAILING_WHITESPACE)

# Two builds of one version differ in nothing, so its texts bear its day and not the day of the build.
set(made ${CMAKE_CURRENT_BINARY_DIR})
set(of_this_day ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${changed_at} LC_ALL=C.UTF-8 "QT_LOGGING_RULES=*.warning=false")

# zipped(SOURCE NAME): adds NAME.gz of the build folder to what is made, and leaves it in ${file}.
set(made_files "")
macro(zipped source name)
  set(file ${made}/${name}.gz)
  add_custom_command(OUTPUT ${file} COMMAND sh -c "gzip -9nc \"$1\" >\"$2\"" gzip ${source} ${file} DEPENDS ${source} VERBATIM)
  list(APPEND made_files ${file})
endmacro()

foreach(program triaxlab triaxlab-cli)
  add_custom_command(OUTPUT ${made}/${program}.1
    COMMAND ${of_this_day} ${CMAKE_CURRENT_SOURCE_DIR}/man_page $<TARGET_FILE:${program}>
            ${CMAKE_CURRENT_SOURCE_DIR}/man/${program}.inc ${made}/${program}.1
    DEPENDS ${program} man_page man/${program}.inc VERBATIM)
  zipped(${made}/${program}.1 ${program}.1)
  install(FILES ${file} DESTINATION share/man/man1 COMPONENT programs)
endforeach()

zipped(${CMAKE_CURRENT_SOURCE_DIR}/changelog changelog)
foreach(component programs doc)
  install(FILES ${file} copyright DESTINATION ${texts_of_${component}} COMPONENT ${component})
endforeach()

configure_file(${id}.metainfo.xml.in ${id}.metainfo.xml @ONLY)
install(FILES ${made}/${id}.metainfo.xml DESTINATION share/metainfo COMPONENT programs)

add_custom_command(OUTPUT ${made}/manual.pdf
  COMMAND ${of_this_day} QT_QPA_PLATFORM=offscreen $<TARGET_FILE:manual_pdf> ${made}/manual.pdf DEPENDS manual_pdf VERBATIM)
list(APPEND made_files ${made}/manual.pdf)
install(FILES ${made}/manual.pdf ${PROJECT_SOURCE_DIR}/docs/archives.md ${PROJECT_SOURCE_DIR}/docs/playing-scripts.md
  DESTINATION ${texts_of_doc} COMPONENT doc)
install(FILES ${PROJECT_SOURCE_DIR}/samples/README.md DESTINATION ${texts_of_doc} COMPONENT doc RENAME samples.md)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/formats DESTINATION ${texts_of_doc} COMPONENT doc)
install(FILES doc-base DESTINATION share/doc-base COMPONENT doc RENAME triaxlab-doc.triaxlab-manual)

# All that an installation is made of, and no more of the house than that.
add_custom_target(installed_parts DEPENDS ${made_files})
add_dependencies(installed_parts triaxlab triaxlab-cli triaxlab-cli-pages triaxlab-jet-reader)

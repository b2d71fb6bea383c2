# What `cmake --install` puts in place: programs, the modules that they load, the headers and the reader that a
# game is built with, manual pages. Programs find their modules in ../lib/corvane, whatever the prefix is, so
# that the folder is not the system's own choice for libraries.
include(GNUInstallDirs)

install(TARGETS corvane corvanectl gamedb-dump RUNTIME DESTINATION bin)
if(TARGET zrc)
  install(TARGETS zrc RUNTIME DESTINATION bin)
endif()
install(TARGETS CorvaneCreator GlossarRuntime corvane-ui LIBRARY DESTINATION lib/corvane)
install(TARGETS corvane-sound RUNTIME DESTINATION lib/corvane)
install(TARGETS gamedb ARCHIVE DESTINATION lib)
file(GLOB sdk_headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/sdk/inc/*.h ${CMAKE_SOURCE_DIR}/sdk/gamedb/Game*.h)
install(FILES ${sdk_headers} DESTINATION include/corvane)
file(GLOB manual_pages CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/man/*.1)
install(FILES ${manual_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

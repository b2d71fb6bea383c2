# corvane_type(<word> <folder> <class file> [CREATE <function>])
# One word of a schema's `Type` key. <folder> holds <class file>.h, which declares the class C<class file>
# with its complete attribute data as the nested alias AttribData. All sources of the folder belong to the
# type library, except those of the UI: *View.cpp, *Dlg.cpp, *Dialog.cpp and *FindPanel.cpp. CREATE names the
# creation function of a class that serves several words and so cannot be made from its default constructor
# alone.
macro(corvane_type word folder class)
  cmake_parse_arguments(CORVANE_TYPE "" "CREATE" "" ${ARGN})
  if(NOT CORVANE_TYPE_CREATE)
    set(CORVANE_TYPE_CREATE "CreateCorvaneType<C${class}>")
  endif()
  list(APPEND CORVANE_TYPE_FOLDERS ${folder})
  list(APPEND CORVANE_TYPE_HEADERS "${folder}/${class}.h")
  string(APPEND CORVANE_TYPE_CALLS
    "    types.RegisterType(u\"${word}\", &${CORVANE_TYPE_CREATE});\n"
    "    attribData.RegisterAttribData(u\"${word}\", &CreateCorvaneAttribData<C${class}::AttribData>);\n")
endmacro()

# Writes the registration and collects the sources and tests of all listed folders into
# CORVANE_TYPE_SOURCES and CORVANE_TYPE_TESTS.
macro(corvane_types_finish)
  list(REMOVE_DUPLICATES CORVANE_TYPE_FOLDERS)
  list(REMOVE_DUPLICATES CORVANE_TYPE_HEADERS)
  foreach(header IN LISTS CORVANE_TYPE_HEADERS)
    string(APPEND CORVANE_TYPE_INCLUDES "#include \"${header}\"\n")
  endforeach()
  configure_file(RegisterTypes.cpp.in ${CMAKE_CURRENT_BINARY_DIR}/RegisterTypes.cpp @ONLY)
  set(CORVANE_TYPE_SOURCES ${CMAKE_CURRENT_BINARY_DIR}/RegisterTypes.cpp)
  foreach(folder IN LISTS CORVANE_TYPE_FOLDERS)
    file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp)
    list(FILTER sources EXCLUDE REGEX "(View|Dlg|Dialog|FindPanel)\\.cpp$")
    file(GLOB tests CONFIGURE_DEPENDS ${folder}/tests/*.cpp)
    list(FILTER tests EXCLUDE REGEX "ViewTest\\.cpp$")
    list(APPEND CORVANE_TYPE_SOURCES ${sources})
    list(APPEND CORVANE_TYPE_TESTS ${tests})
  endforeach()
endmacro()

# For a compilation without linking, the libraries' headers are enough. They are the same for every system, but the folder
# that Debian keeps them in holds this system's own headers as well, so they are copied out of it.
set(foreign ${PROJECT_BINARY_DIR}/foreign)
foreach(header sqlite3.h utf8proc.h)
  configure_file(/usr/include/${header} ${foreign}/${header} COPYONLY)
endforeach()
foreach(library SQLITE UTF8PROC)
  add_library(PkgConfig::${library} INTERFACE IMPORTED)
  target_include_directories(PkgConfig::${library} SYSTEM INTERFACE ${foreign})
endforeach()
target_compile_definitions(PkgConfig::UTF8PROC INTERFACE UTF8PROC_STATIC)

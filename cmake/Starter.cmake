# The records of resources/snippets as statements in a header of the program, StarterTexts.h. A build for another system
# takes the header that this one made: TESSEL_STARTER names its folder.
set(TESSEL_STARTER "" CACHE PATH "Folder of a StarterTexts.h that is made already")

function(tessel_starter target)
  if(TESSEL_STARTER)
    target_include_directories(${target} PRIVATE ${TESSEL_STARTER})
    return()
  endif()
  set(folder ${PROJECT_SOURCE_DIR}/resources/snippets)
  file(GLOB_RECURSE records CONFIGURE_DEPENDS ${folder}/*.snippet ${folder}/_order.txt)
  add_executable(seed_writer ${PROJECT_SOURCE_DIR}/tools/SeedWriter.cpp
    snippets/RecordText.cpp snippets/SnippetFiles.cpp)
  target_link_libraries(seed_writer PRIVATE tessel_vb)
  set(made ${PROJECT_BINARY_DIR}/starter)
  file(MAKE_DIRECTORY ${made})
  add_custom_command(OUTPUT ${made}/StarterTexts.h
    COMMAND seed_writer ${folder} ${made}/StarterTexts.h
    DEPENDS seed_writer ${records} VERBATIM COMMENT "Starter library")
  add_custom_target(starter_texts DEPENDS ${made}/StarterTexts.h)
  target_sources(${target} PRIVATE ${made}/StarterTexts.h)
  target_include_directories(${target} PRIVATE ${made})
endfunction()

# Libraries that are used as headers alone when another system is built for. The building
# system's own headers lie beside them, so the folders are linked into one of their own.
foreach(library nlohmann fmt)
  find_path(PACTORA_${library} ${library} PATHS /usr/include REQUIRED NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/headers)
  file(CREATE_LINK ${PACTORA_${library}}/${library} ${CMAKE_BINARY_DIR}/headers/${library} SYMBOLIC)
endforeach()
foreach(library nlohmann_json::nlohmann_json fmt::fmt)
  add_library(${library} INTERFACE IMPORTED)
  target_include_directories(${library} SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/headers)
endforeach()
target_compile_definitions(fmt::fmt INTERFACE FMT_HEADER_ONLY)

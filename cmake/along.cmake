# For compilers and systems that Debian has these libraries not for: what consists of headers is taken as such,
# GoogleTest is compiled along, and each find_package finds what stands here.
set(headers ${PROJECT_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${headers})

# headers_along(PACKAGE TARGET FOLDER): the folder of /usr/include, without all that stands beside it there.
function(headers_along package target folder)
  file(CREATE_LINK /usr/include/${folder} ${headers}/${folder} SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} SYSTEM INTERFACE ${headers})
  string(TOLOWER ${package} name)
  file(WRITE ${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/${name}-config.cmake "")
endfunction()

headers_along(fmt fmt::fmt fmt)
target_compile_definitions(fmt::fmt INTERFACE FMT_HEADER_ONLY)
headers_along(nlohmann_json nlohmann_json::nlohmann_json nlohmann)
headers_along(CLI11 CLI11::CLI11 CLI)

if(TRIAXLAB_LIBCXX)
  add_compile_options(-stdlib=libc++)
  add_link_options(-stdlib=libc++)
endif()
if(TRIAXLAB_TESTS)
  add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endif()

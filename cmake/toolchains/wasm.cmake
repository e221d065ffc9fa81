# WebAssembly, by Emscripten as Debian packages it. Node runs the programs. To link, Emscripten needs
# NODE_PATH=/usr/share/nodejs in the environment where Node is not that of Debian.
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)
# The default archive throws. A program is one file, which every version of node loads.
add_compile_options(-fexceptions)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fexceptions -sSINGLE_FILE=1 -sALLOW_MEMORY_GROWTH=1")

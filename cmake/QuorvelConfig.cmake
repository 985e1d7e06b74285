# Quorvel's core as CMake targets: Quorvel::files, Quorvel::signal, Quorvel::compare.
include(CMakeFindDependencyMacro)
find_dependency(Boost 1.74)
find_dependency(FastFloat)
find_dependency(Threads)

# FFTW has no CMake package of its own on Debian; the module that finds it is installed next to this file.
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR})
find_dependency(FFTW3)
list(POP_FRONT CMAKE_MODULE_PATH)

include(${CMAKE_CURRENT_LIST_DIR}/QuorvelTargets.cmake)

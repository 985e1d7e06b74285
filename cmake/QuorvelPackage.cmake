# The core as a library of other programs: find_package(Quorvel) finds what this installs, and the targets
# Quorvel::files, Quorvel::signal and Quorvel::compare. `cmake --install BUILD --component library` installs it alone.
include(CMakePackageConfigHelpers)

foreach(folder files signal compare)
    quorvel_install_library(${folder})
endforeach()

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Quorvel)
install(EXPORT QuorvelTargets NAMESPACE Quorvel:: DESTINATION ${package_folder} COMPONENT library)

write_basic_package_version_file(${PROJECT_BINARY_DIR}/QuorvelConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(
    FILES
        ${CMAKE_CURRENT_LIST_DIR}/QuorvelConfig.cmake
        ${CMAKE_CURRENT_LIST_DIR}/FindFFTW3.cmake
        ${PROJECT_BINARY_DIR}/QuorvelConfigVersion.cmake
    DESTINATION ${package_folder} COMPONENT library)

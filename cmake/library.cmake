# The libraries that are installed, and how other projects find them.
include(CMakePackageConfigHelpers)

add_library(ov_model SHARED)
target_link_libraries(ov_model PRIVATE ov_model_core)
# Hidden visibility does not reach templates of the standard library, so the linker sees to it.
target_link_options(ov_model PRIVATE "LINKER:--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map")
set_target_properties(ov_model PROPERTIES LINK_DEPENDS "${PROJECT_SOURCE_DIR}/cmake/exports.map")
set_target_properties(ov_model PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}"
  LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}")

add_library(ov_model_contract STATIC $<TARGET_OBJECTS:ov_model_contract_objects>)
set_target_properties(ov_model_contract PROPERTIES ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}")

install(TARGETS ov_model LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS ov_model_contract ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
foreach(folder contract platform/automation platform/locale)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/src/${folder}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/ov_model/${folder}/.."
          FILES_MATCHING PATTERN "*.h")
endforeach()
install(FILES "${PROJECT_SOURCE_DIR}/src/module/ov_model.h" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ov_model)
install(FILES "${PROJECT_SOURCE_DIR}/src/platform/store/store.h"
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ov_model/platform/store)

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/OV_ModelConfig.cmake.in"
  "${CMAKE_BINARY_DIR}/OV_ModelConfig.cmake" INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OV_Model
  PATH_VARS CMAKE_INSTALL_LIBDIR CMAKE_INSTALL_INCLUDEDIR)
write_basic_package_version_file("${CMAKE_BINARY_DIR}/OV_ModelConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_BINARY_DIR}/OV_ModelConfig.cmake" "${CMAKE_BINARY_DIR}/OV_ModelConfigVersion.cmake"
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OV_Model)
# ov_model.pc is for hosts in C++, ov_model_c.pc for those in C. Their paths start at their own folder, so that a package
# can be moved.
file(RELATIVE_PATH OV_MODEL_PREFIX_FROM_PKGCONFIG "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
foreach(name ov_model ov_model_c)
  configure_file("${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in" "${CMAKE_BINARY_DIR}/${name}.pc" @ONLY)
  install(FILES "${CMAKE_BINARY_DIR}/${name}.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

# The Python package needs no compiler and finds the library from where it lies.
set(OV_MODEL_PYTHON_DIR "lib/python3/dist-packages" CACHE STRING "Where the Python package is installed, below the prefix")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/bindings/python/ov_model" DESTINATION "${OV_MODEL_PYTHON_DIR}"
        FILES_MATCHING PATTERN "*.py" PATTERN "py.typed" PATTERN "__pycache__" EXCLUDE)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples/" DESTINATION "${CMAKE_INSTALL_DATADIR}/ov_model/examples"
        USE_SOURCE_PERMISSIONS PATTERN "*.db" EXCLUDE PATTERN "demo.sh" EXCLUDE PATTERN "__pycache__" EXCLUDE)

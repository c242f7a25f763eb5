# SPDX-License-Identifier: GPL-3.0-or-later
# The folders of src/ are layers: a file includes headers of its own layer and
# of those below it, never above, so that the platform layer stays beneath
# everything and the logic never reaches for the screens. ctest runs it as
# "capas":  cmake -DFUENTES=<src> -P capas.cmake
set(capas
  plataforma                         # the system, and nothing of ours
  nucleo                             # the environment, the records, the texts
  escaner,limpieza,desinstalador,mapa # the engines, which may use each other
  estado                             # the observable state objects
  pantallas,widget                   # the screens and the widget
  app)                               # the shell

set(nivel 0)
foreach(capa IN LISTS capas)
  string(REPLACE "," ";" carpetas "${capa}")
  foreach(carpeta IN LISTS carpetas)
    set(nivel_${carpeta} ${nivel})
  endforeach()
  math(EXPR nivel "${nivel} + 1")
endforeach()

set(fallos "")
file(GLOB_RECURSE archivos RELATIVE "${FUENTES}" "${FUENTES}/*.h" "${FUENTES}/*.cpp")
foreach(archivo IN LISTS archivos)
  # Files at the top of src/ (the entry point, the terminal) may use any layer.
  string(REGEX MATCH "^[^/]+/" carpeta "${archivo}")
  if(NOT carpeta)
    continue()
  endif()
  string(REPLACE "/" "" carpeta "${carpeta}")
  if(NOT DEFINED nivel_${carpeta})
    list(APPEND fallos "${archivo}: la carpeta ${carpeta} no tiene capa")
    continue()
  endif()
  file(STRINGS "${FUENTES}/${archivo}" lineas REGEX "^#include \"[a-z_]+/")
  foreach(linea IN LISTS lineas)
    string(REGEX REPLACE "^#include \"([a-z_]+)/.*" "\\1" incluida "${linea}")
    if(DEFINED nivel_${incluida} AND nivel_${incluida} GREATER nivel_${carpeta})
      list(APPEND fallos "${archivo}: ${linea} (${carpeta} está debajo de ${incluida})")
    endif()
  endforeach()
endforeach()

if(fallos)
  list(JOIN fallos "\n" texto)
  message(FATAL_ERROR "Inclusiones hacia arriba:\n${texto}")
endif()
list(LENGTH archivos n)
message(STATUS "capas: ${n} archivos, ninguna inclusión hacia arriba")

# Roda como script (cmake -P): instala, configura e compila o consumidor, e o executa.
file(REMOVE_RECURSE ${TEMP})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BINARIOS} --prefix ${TEMP}/prefixo
                RESULT_VARIABLE r OUTPUT_QUIET)
if(r)
  message(FATAL_ERROR "a instalação falhou")
endif()
# O mesmo gerador da compilação que se testa (o make nem sempre está instalado).
execute_process(COMMAND ${CMAKE_COMMAND} -S ${FONTE} -B ${TEMP}/b -G ${GERADOR} -DCMAKE_PREFIX_PATH=${TEMP}/prefixo
                        -DCMAKE_BUILD_TYPE=Release RESULT_VARIABLE r OUTPUT_QUIET)
if(r)
  message(FATAL_ERROR "find_package(TavruGis) falhou")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${TEMP}/b RESULT_VARIABLE r OUTPUT_QUIET)
if(r)
  message(FATAL_ERROR "o consumidor não compilou")
endif()
set(ENV{LD_LIBRARY_PATH} ${TEMP}/prefixo/lib:${TEMP}/prefixo/lib64)
set(ENV{QT_QPA_PLATFORM} offscreen)
execute_process(COMMAND ${TEMP}/b/consumidor RESULT_VARIABLE r OUTPUT_VARIABLE saida)
message("${saida}")
if(r)
  message(FATAL_ERROR "o consumidor falhou: ${r}")
endif()

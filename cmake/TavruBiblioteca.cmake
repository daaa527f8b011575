# Funções que montam as bibliotecas da casa a partir das pastas.
#
# tavru_biblioteca(<alvo> PASTA <pasta> MACRO <MACRO> NOME_EXPORTADO <Nome> [LIGA <alvos...>])
#   Biblioteca compartilhada com todos os .cpp/.h/.qrc da pasta; define <MACRO>_BUILD ao compilar
#   (ver platform/Exportacao.h) e exporta o alvo como Tavru::<Nome>.
#
# tavru_objetos(<alvo> PASTA <pasta> [LIGA <alvos...>])
#   Biblioteca de objetos de uma pasta de tavru_gis (core, elements, control, xml): os testes de
#   cada pasta ligam só os objetos de que precisam; tavru_gis junta todos numa biblioteca só.

function(_tavru_fontes var pasta)
  file(GLOB fontes CONFIGURE_DEPENDS
       ${PROJECT_SOURCE_DIR}/${pasta}/*.cpp
       ${PROJECT_SOURCE_DIR}/${pasta}/*.h
       ${PROJECT_SOURCE_DIR}/${pasta}/*.qrc)
  # Uma pasta que ainda não tem fontes ganha uma unidade vazia, para que o alvo exista.
  list(FILTER fontes INCLUDE REGEX "\\.cpp$")
  if(NOT fontes)
    string(MAKE_C_IDENTIFIER "${pasta}" id)
    set(vazio ${PROJECT_BINARY_DIR}/vazios/${id}.cpp)
    file(WRITE ${vazio} "// unidade vazia de ${pasta}\n")
  endif()
  file(GLOB fontes CONFIGURE_DEPENDS
       ${PROJECT_SOURCE_DIR}/${pasta}/*.cpp
       ${PROJECT_SOURCE_DIR}/${pasta}/*.h
       ${PROJECT_SOURCE_DIR}/${pasta}/*.qrc)
  set(${var} ${fontes} ${vazio} PARENT_SCOPE)
endfunction()

function(tavru_biblioteca alvo)
  cmake_parse_arguments(A "" "PASTA;MACRO;NOME_EXPORTADO" "LIGA" ${ARGN})
  _tavru_fontes(fontes ${A_PASTA})
  add_library(${alvo} SHARED ${fontes})
  add_library(Tavru::${A_NOME_EXPORTADO} ALIAS ${alvo})
  set_target_properties(${alvo} PROPERTIES EXPORT_NAME ${A_NOME_EXPORTADO}
                        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  target_compile_definitions(${alvo} PRIVATE ${A_MACRO}_BUILD)
  target_include_directories(${alvo} PUBLIC
    $<BUILD_INTERFACE:${TAVRU_INCLUDE_RAIZ}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_link_libraries(${alvo} PUBLIC ${A_LIGA})
  install(TARGETS ${alvo} EXPORT TavruGisTargets
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} NAMELINK_COMPONENT dev
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev
          RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  _tavru_instalar_cabecalhos(${A_PASTA})
endfunction()

function(tavru_objetos alvo)
  cmake_parse_arguments(A "" "PASTA" "LIGA" ${ARGN})
  _tavru_fontes(fontes ${A_PASTA})
  add_library(${alvo} OBJECT ${fontes})
  target_compile_definitions(${alvo} PRIVATE TAVRU_GIS_BUILD)
  target_include_directories(${alvo} PUBLIC $<BUILD_INTERFACE:${TAVRU_INCLUDE_RAIZ}>)
  target_link_libraries(${alvo} PUBLIC ${A_LIGA})
  _tavru_instalar_cabecalhos(${A_PASTA})
endfunction()

# Os cabeçalhos de uma pasta de biblioteca: instalados em include/tavru/<pasta>, e vistos na
# compilação pela mesma forma <tavru/<pasta>/...>, por um link em ${TAVRU_INCLUDE_RAIZ}/tavru.
# Assim nenhum nome genérico da casa (core/, control/) fica no caminho de inclusão de ninguém.
function(_tavru_instalar_cabecalhos pasta)
  tavru_raiz_de_inclusao(${pasta})
  file(GLOB cabecalhos ${PROJECT_SOURCE_DIR}/${pasta}/*.h)
  list(FILTER cabecalhos EXCLUDE REGEX "_p\\.h$")
  install(FILES ${cabecalhos} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tavru/${pasta} COMPONENT dev)
endfunction()

# tavru_raiz_de_inclusao(<pasta>): põe <pasta> da fonte em ${TAVRU_INCLUDE_RAIZ}/tavru/<pasta>.
function(tavru_raiz_de_inclusao pasta)
  set(link ${TAVRU_INCLUDE_RAIZ}/tavru/${pasta})
  if(NOT EXISTS ${link})
    get_filename_component(pai ${link} DIRECTORY)
    file(MAKE_DIRECTORY ${pai})
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${pasta} ${link} SYMBOLIC)
  endif()
endfunction()

# tavru_teste(<alvo> FONTES <arquivos...> LIGA <alvos...>): um executável GoogleTest registrado no
# CTest, com a plataforma Qt "offscreen".
function(tavru_teste alvo)
  cmake_parse_arguments(A "" "" "FONTES;LIGA" ${ARGN})
  add_executable(${alvo} ${A_FONTES})
  target_link_libraries(${alvo} PRIVATE ${A_LIGA} GTest::gtest Qt6::Widgets)
  target_include_directories(${alvo} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${alvo} PRIVATE TAVRU_DADOS="${PROJECT_SOURCE_DIR}/data")
  add_test(NAME ${alvo} COMMAND ${alvo})
  set_tests_properties(${alvo} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;ASAN_OPTIONS=detect_leaks=1;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp;UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1"
    TIMEOUT 600)
endfunction()

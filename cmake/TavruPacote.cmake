# Os pacotes Debian (CPack, gerador DEB), um por componente de instalação:
#   tavru-gis      componente "runtime" (o padrão de todo install() da casa): as bibliotecas, o
#                  aplicativo de demonstração, os plug-ins DGN e o plug-in do Qt Designer, que o
#                  QUiLoader também usa para carregar formulários;
#   tavru-gis-dev  componente "dev": os cabeçalhos (com o PluginDGN.h), o pacote CMake TavruGis e os
#                  links .so de compilação.
# Quem instala algo novo não precisa mexer aqui: cai no pacote do componente que declarar.
# As dependências do tavru-gis vêm das bibliotecas que os binários ligam (dpkg-shlibdeps); as do
# -dev são as que o TavruGisConfig.cmake procura (Qt6 Core, Gui e Widgets: qt6-base-dev).
# `cpack --config CPackConfig.cmake` numa compilação gera tavru-gis_<versão>_<arquitetura>.deb e
# tavru-gis-dev_<versão>_<arquitetura>.deb (ver "./tavru pacote").
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tavru-gis)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_CONTACT "Tavru GIS <tavru-gis@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime dev)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME tavru-gis)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION science)
# O arquivo shlibs e o gatilho do ldconfig: as bibliotecas vão para uma pasta do sistema.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "${PROJECT_DESCRIPTION}\n Componentes de mapa em C++17 e Qt 6: as bibliotecas, o aplicativo de\n demonstração tavru-mapa, os plug-ins de desenhos DGN e a coleção GIS do Qt Designer.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME tavru-gis-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "tavru-gis (= ${PROJECT_VERSION}), qt6-base-dev")
set(CPACK_COMPONENT_DEV_DESCRIPTION
    "${PROJECT_DESCRIPTION} - desenvolvimento\n Os cabeçalhos tavru/... e o pacote CMake TavruGis, que dá o alvo Tavru::Gis.")
include(CPack)

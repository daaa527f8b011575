#pragma once
/// \file
/// A unidade `ReconheceArquivoXML`: o tratador dos documentos XML do mapa, os ajustes da unidade
/// (`TAG_RAIZ`, `CABECALHO`, `USAR_TABELA_DE_SIMBOLOS`, `ESCAPAR_TEXTOS`) e
/// `ObterRefClassObjetoGis`. O tratador se registra sob o tipo "XML" quando a biblioteca carrega.

#include <tavru/xml/ConfiguracaoXML.h>
#include <tavru/xml/TDocumentoXML.h>
#include <tavru/xml/TTratadorDeArquivosXML.h>

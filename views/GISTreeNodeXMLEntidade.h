#pragma once
/// \file
/// A unidade `GISTreeNodeXMLEntidade`: os nós da árvore de acompanhamento.

#include <tavru/views/TGISArvoreDeAcompanhamento.h>
#include <tavru/views/TGISTreeNodeAcompanhamentoXML.h>
#include <tavru/views/TGISTreeNodeXMLEntidade.h>

#pragma once
// O que os testes da biblioteca do GDAL dividem: o caminho dos dados e o registro guardado.

#include <tavru/core/TGISObjetoList.h>
#include <tavru/gdal/ReconheceArquivosGDAL.h>

#include <QString>

namespace tavru::teste {

inline QString DadoGdal(const char *nome)
{
    return QStringLiteral(TAVRU_DADOS "/gdal/") + QString::fromUtf8(nome);
}

} // namespace tavru::teste

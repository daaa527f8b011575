#include "ArquivosDoMapa.h"

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/platform/Exception.h>

#include <QFileInfo>
#include <memory>

namespace tavru {

namespace {

QString TipoOuPelaExtensao(const QString &arquivo, const QString &tipo, bool leitura)
{
    const QString achado = tipo.isEmpty() ? TGISObjetoList::ObterTipoPeloArquivo(arquivo, leitura) : tipo;
    if (achado.isEmpty())
        throw EInvalidOperation(QStringLiteral("Nenhum tratador de arquivo %1 arquivos do tipo \"%2\".")
                                    .arg(leitura ? QStringLiteral("lê") : QStringLiteral("grava"),
                                         QFileInfo(arquivo).suffix()));
    return achado;
}

} // namespace

QString TipoDoArquivo(const QString &arquivo, const QString &filtroEscolhido, bool leitura)
{
    const QString tipo = TGISObjetoList::ObterTipoPeloFiltro(filtroEscolhido, leitura);
    return tipo.isEmpty() ? TGISObjetoList::ObterTipoPeloArquivo(arquivo, leitura) : tipo;
}

TGISCamada &AbrirEmCamadaNova(TGis &gis, const QString &arquivo, const QString &tipo)
{
    const QString achado = TipoOuPelaExtensao(arquivo, tipo, true);
    auto camada = std::make_unique<TGISCamada>(QFileInfo(arquivo).completeBaseName());
    camada->Objetos().Ler(arquivo, achado);
    camada->Visibilidade(true, true);
    TGISCamada &nova = *camada;
    gis.Camadas().Add(camada.release());
    gis.Zerado();
    return nova;
}

void GravarCamada(TGISCamada &camada, const QString &arquivo, const QString &tipo)
{
    camada.Objetos().Gravar(arquivo, TipoOuPelaExtensao(arquivo, tipo, false));
}

} // namespace tavru

#include "ArquivosDoMapa.h"

#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/platform/Exception.h>
#include <tavru/xml/ConfiguracaoXML.h>

#include <QDir>
#include <QFileInfo>
#include <memory>

namespace tavru {

namespace {

QString TipoOuPelaExtensao(const QString &arquivo, const QString &tipo, bool leitura)
{
    QString achado = tipo.isEmpty() ? TGISObjetoList::ObterTipoPeloArquivo(arquivo, leitura) : tipo;
    // Nenhum padrão casa (o filtro de leitura do "png" lista *.jpg): vale a busca solta pela
    // extensão, que também olha a descrição do filtro ("(*.png)").
    if (achado.isEmpty() && !QFileInfo(arquivo).suffix().isEmpty())
        achado = TGISObjetoList::ObterTipoPelaExtencao(QFileInfo(arquivo).suffix(), leitura);
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

void AjustarDocumentosDoAplicativo()
{
    ESCAPAR_TEXTOS = true;
    CABECALHO = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
}

TGISCamada &AbrirEmCamadaNova(TGis &gis, const QString &arquivo, const QString &tipo, const TLerCamada &ler)
{
    const QString achado = TipoOuPelaExtensao(arquivo, tipo, true);
    const QString base = QFileInfo(arquivo).completeBaseName();
    QString nome = base;
    for (int n = 2; gis.ObterCamada(nome); ++n)
        nome = QStringLiteral("%1 (%2)").arg(base).arg(n);
    auto camada = std::make_unique<TGISCamada>(nome);
    if (ler)
        ler(camada->Objetos(), arquivo, achado);
    else
        camada->Objetos().Ler(arquivo, achado);
    // Um documento que o tratador aceita sem achar nada que conheça não vira uma camada vazia.
    if (camada->Objetos().Count() == 0)
        throw EInvalidOperation(QStringLiteral("nenhum objeto reconhecido em %1").arg(arquivo));
    camada->Visibilidade(true, true);
    TGISCamada &nova = *camada;
    gis.Camadas().Add(camada.release());
    gis.Zerado();
    return nova;
}

QString ArquivoParaSalvar(const TGISCamada &camada)
{
    const QString atual = camada.Objetos().NomeArquivo();
    if (!atual.isEmpty() && !atual.startsWith(QLatin1Char(':')))
        return atual;
    QString nome = camada.Nome();
    for (const QChar proibido : {QLatin1Char('/'), QLatin1Char('\\'), QLatin1Char(':')})
        nome.replace(proibido, QLatin1Char('_'));
    if (nome.trimmed().isEmpty())
        nome = QStringLiteral("camada");
    return QDir::home().filePath(nome + QStringLiteral(".xml"));
}

void GravarCamada(TGISCamada &camada, const QString &arquivo, const QString &tipo)
{
    camada.Objetos().Gravar(arquivo, TipoOuPelaExtensao(arquivo, tipo, false));
}

} // namespace tavru

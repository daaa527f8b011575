#include <tavru/formats/TTratadorArquivosRasters.h>

#include <tavru/companions/geodesy/TFileFormatList.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/platform/ArquivoComum.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <QFileInfo>

#include <memory>

namespace tavru {

const TClasseTratador TTratadorArquivosRasters::Classe =
    TClasseTratador::De<TTratadorArquivosRasters>("TTratadorArquivosRasters");

TTratadorArquivosRasters::TTratadorArquivosRasters(TGISObjetoList &lista) : TGISTratadorDeArquivo(lista) {}

void TTratadorArquivosRasters::Ler(const QString &nomeArquivo)
{
    auto imagem = std::make_unique<TGISImagem>();
    try {
        imagem->LerArquivo(nomeArquivo);
    } catch (const std::exception &) {
        Dialogos().Mensagem(QStringLiteral("Arquivo em formato desconhecido!"), QString(), mtErro);
        return;
    }
    Lista().Add(imagem.release());
    Lista().CalcularLimites();
}

void TTratadorArquivosRasters::Gravar(const QString &nomeArquivo)
{
    const QFileInfo info(nomeArquivo);
    QString extensao = info.suffix();
    QString base = nomeArquivo;
    if (extensao.isEmpty())
        extensao = QStringLiteral("jpg");
    else
        base.chop(extensao.size() + 1);
    const QString nome = base + QLatin1Char('.') + extensao;
    TFormatoGrafico formato;
    if (!TFileFormatList::GraphicFromExtension(extensao, formato))
        throw EInOutError(QStringLiteral("Extensão de figura desconhecida: \"%1\".").arg(extensao));
    if (!formato.Gravar)
        throw EInOutError(QStringLiteral("O formato \"%1\" não se grava: %2.").arg(extensao, nome));
    // O contador das figuras seguintes nunca avança: todas vão para o mesmo nome (vale a última).
    const int contador = 0;
    for (int i = 0; i < Lista().Count(); ++i) {
        const auto *imagem = dynamic_cast<const TGISImagem *>(Lista().ObterGISObjeto(i));
        if (!imagem)
            continue;
        const QString destino = contador == 0 ? nome : base + QString::number(contador) + QLatin1Char('.') + extensao;
        formato.Gravar(imagem->Imagem(), destino);
        GravarGeoReferencia(*imagem, TGISImagem::NomeArquivoGEO(destino));
    }
}

bool TTratadorArquivosRasters::Reconhece(QIODevice &)
{
    return true;
}

TGISRet TTratadorArquivosRasters::LerGeoreferencia(const QString &nomeArquivo, const TGISRet &atual)
{
    TGISRet area = atual;
    TGISImagem::LerGeo(nomeArquivo, area);
    return area;
}

void TTratadorArquivosRasters::GravarGeoReferencia(const TGISImagem &imagem, const QString &nomeArquivo)
{
    const TGISRet r = imagem.Area();
    const QByteArray linha = QByteArray::number(r.Pos1.Latitude) + ' ' + QByteArray::number(r.Pos1.Longitude) + ' ' +
                             QByteArray::number(r.Pos2.Latitude) + ' ' + QByteArray::number(r.Pos2.Longitude) + "\r\n";
    const QString motivo = GravarArquivoComum(nomeArquivo, linha);
    if (!motivo.isEmpty())
        throw EInOutError(QStringLiteral("Não foi possível gravar o arquivo \"%1\": %2.").arg(nomeArquivo, motivo));
}

} // namespace tavru

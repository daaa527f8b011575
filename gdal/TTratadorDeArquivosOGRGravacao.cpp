// A gravação de GeoJSON e GeoPackage pelo OGR: montada num arquivo em memória do GDAL (/vsimem/)
// e escrita ao lado do nome e renomeada por cima dele.
#include <tavru/gdal/TTratadorDeArquivosOGR.h>
#include "GdalComum_p.h"

#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISAreaComFuros.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/ArquivoComum.h>
#include <tavru/platform/Exception.h>

#include <cpl_error.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QFileInfo>
#include <QHash>
#include <QStringList>
#include <memory>

namespace tavru {

using namespace gdal;

namespace {

enum TGeometriaGravada { fPonto, fLinha, fArea, fAreaComFuros, fNenhuma };

TGeometriaGravada FormaDe(const TGISObjeto &o)
{
    if (dynamic_cast<const TGISPonto *>(&o))
        return fPonto;
    if (dynamic_cast<const TGISAreaComFuros *>(&o))
        return fAreaComFuros;
    if (dynamic_cast<const TGISArea *>(&o))
        return fArea;
    if (dynamic_cast<const TGISLinha *>(&o))
        return fLinha;
    return fNenhuma;
}

double Graus(std::int32_t segundos)
{
    return segundos / 3600.0;
}

// A parte `p` de uma linha em pontos absolutos, como curva do OGR.
template <typename TCurva>
std::unique_ptr<TCurva> Curva(const TGISLinha &linha, int p, bool fechar)
{
    auto curva = std::make_unique<TCurva>();
    const TGISPosicaoList &lista = *linha.Pontos().Items(p);
    const int n = lista.Count();
    curva->setNumPoints(n + (fechar ? 1 : 0), FALSE);
    for (int i = 0; i < n; ++i) {
        const TGISPosicao q = linha.ObterPonto(p, i);
        curva->setPoint(i, Graus(q.Longitude), Graus(q.Latitude));
    }
    if (fechar)
        curva->setPoint(n, curva->getX(0), curva->getY(0));
    return curva;
}

// A geometria do objeto (nula quando ele não tem pontos).
std::unique_ptr<OGRGeometry> Geometria(const TGISObjeto &o, TGeometriaGravada forma)
{
    if (forma == fPonto) {
        const TGISPosicao p = o.Posicao();
        return std::make_unique<OGRPoint>(Graus(p.Longitude), Graus(p.Latitude));
    }
    const auto &linha = static_cast<const TGISLinha &>(o);
    std::vector<int> partes;
    for (int p = 0; p < linha.Pontos().Count(); ++p)
        if (linha.Pontos().Items(p) && linha.Pontos().Items(p)->Count() > 0)
            partes.push_back(p);
    if (partes.empty())
        return nullptr;
    if (forma == fLinha) {
        if (partes.size() == 1)
            return Curva<OGRLineString>(linha, partes[0], false);
        auto multi = std::make_unique<OGRMultiLineString>();
        for (int p : partes)
            multi->addGeometryDirectly(Curva<OGRLineString>(linha, p, false).release());
        return multi;
    }
    // Anéis fechados; cada um como um polígono, e então organizados pela profundidade (furos nos
    // polígonos que os contêm) ou deixados lado a lado.
    std::vector<OGRGeometry *> poligonos;
    for (int p : partes) {
        auto anel = Curva<OGRLinearRing>(linha, p, true);
        if (anel->getNumPoints() < 4) // um anel do formato tem ao menos três pontos distintos
            continue;
        auto *poligono = new OGRPolygon;
        poligono->addRingDirectly(anel.release());
        poligonos.push_back(poligono);
    }
    if (poligonos.empty())
        return nullptr;
    if (forma == fAreaComFuros) {
        int valido = FALSE;
        const char *opcoes[] = {"METHOD=DEFAULT", nullptr};
        return std::unique_ptr<OGRGeometry>(OGRGeometryFactory::organizePolygons(
            poligonos.data(), static_cast<int>(poligonos.size()), &valido, opcoes));
    }
    auto multi = std::make_unique<OGRMultiPolygon>();
    for (OGRGeometry *g : poligonos)
        multi->addGeometryDirectly(g);
    return multi;
}

} // namespace

void TTratadorDeArquivosOGR::Gravar(const QString &nomeArquivo)
{
    const QFileInfo info(nomeArquivo);
    const QString extensao = info.suffix().toLower();
    const char *driverNome = nullptr;
    if (extensao == QLatin1String("geojson") || extensao == QLatin1String("json"))
        driverNome = "GeoJSON";
    else if (extensao == QLatin1String("gpkg"))
        driverNome = "GPKG";
    else
        throw EInOutError(QStringLiteral("O arquivo \"%1\" não foi gravado: só se grava GeoJSON (.geojson, .json) e "
                                         "GeoPackage (.gpkg).")
                              .arg(info.fileName()));

    const TGISObjetoList &lista = Lista();
    std::vector<TGeometriaGravada> formas;
    QStringList ruins;
    QStringList campos;
    QHash<QString, int> indiceDoCampo;
    for (int i = 0; i < lista.Count(); ++i) {
        const TGISObjeto *o = lista.Items(i);
        formas.push_back(o ? FormaDe(*o) : fNenhuma);
        if (!o)
            continue;
        if (formas.back() == fNenhuma)
            ruins.append(QStringLiteral("%1 (%2)").arg(i).arg(o->Classe().Nome()));
        const TInformacoes &informacoes = o->Informacoes();
        for (int c = 0; c < informacoes.ObterTotal(); ++c) {
            const QString campo = informacoes.ObterNomeCampo(c);
            if (!indiceDoCampo.contains(campo)) {
                indiceDoCampo.insert(campo, static_cast<int>(campos.size()));
                campos.append(campo);
            }
        }
    }
    if (!ruins.isEmpty())
        throw EInvalidOperation(QStringLiteral("Objetos que não se gravam em %1 (índice e classe): %2. Nada foi gravado.")
                                    .arg(QString::fromLatin1(driverNome), ruins.join(QStringLiteral(", "))));

    IniciarGdal();
    TSilenciarGdal silencio;
    const auto falha = [&](const QString &padrao) {
        return EInOutError(QStringLiteral("O arquivo \"%1\" não foi gravado: %2.")
                               .arg(info.fileName(), TSilenciarGdal::Motivo(padrao)));
    };
    GDALDriver *driver = GetGDALDriverManager()->GetDriverByName(driverNome);
    if (!driver)
        throw falha(QStringLiteral("o GDAL desta máquina não tem o driver %1").arg(QString::fromLatin1(driverNome)));
    TArquivoEmMemoria memoria(extensao);
    {
        GDALDatasetUniquePtr destino(driver->Create(memoria.Nome(), 0, 0, 0, GDT_Unknown, nullptr));
        if (!destino)
            throw falha(QStringLiteral("o arquivo não pôde ser criado"));
        OGRSpatialReference srs(Wgs84());
        OGRLayer *camada = destino->CreateLayer(info.completeBaseName().toUtf8().constData(), &srs, wkbUnknown, nullptr);
        if (!camada)
            throw falha(QStringLiteral("a camada não pôde ser criada"));
        for (const QString &campo : campos) {
            OGRFieldDefn definicao(campo.toUtf8().constData(), OFTString);
            if (camada->CreateField(&definicao) != OGRERR_NONE)
                throw falha(QStringLiteral("o campo \"%1\" não pôde ser criado").arg(campo));
        }
        const bool transacao = destino->StartTransaction() == OGRERR_NONE;
        for (int i = 0; i < lista.Count(); ++i) {
            const TGISObjeto *o = lista.Items(i);
            if (!o)
                continue;
            OGRFeatureUniquePtr feicao(OGRFeature::CreateFeature(camada->GetLayerDefn()));
            const TInformacoes &informacoes = o->Informacoes();
            for (int c = 0; c < informacoes.ObterTotal(); ++c) {
                const int campo = indiceDoCampo.value(informacoes.ObterNomeCampo(c));
                if (!feicao->IsFieldSet(campo)) // o primeiro campo com o nome vale
                    feicao->SetField(campo, informacoes.ObterValorCampo(c).toUtf8().constData());
            }
            if (std::unique_ptr<OGRGeometry> g = Geometria(*o, formas[static_cast<std::size_t>(i)]))
                feicao->SetGeometryDirectly(g.release());
            if (camada->CreateFeature(feicao.get()) != OGRERR_NONE)
                throw falha(QStringLiteral("o objeto %1 não pôde ser gravado").arg(i));
        }
        if (transacao && destino->CommitTransaction() != OGRERR_NONE)
            throw falha(QStringLiteral("a gravação não terminou"));
        CPLErrorReset();
        destino.reset(); // fecha: o GeoPackage termina aqui de escrever o arquivo
        if (CPLGetLastErrorType() >= CE_Failure)
            throw falha(QStringLiteral("a gravação não terminou"));
    }
    const QString motivo = GravarArquivoComum(nomeArquivo, memoria.Bytes());
    if (!motivo.isEmpty())
        throw EInOutError(QStringLiteral("O arquivo \"%1\" não foi gravado: %2.").arg(info.fileName(), motivo));
}

} // namespace tavru

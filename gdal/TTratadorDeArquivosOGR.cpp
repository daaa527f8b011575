// A leitura das fontes vetoriais pelo OGR: camada a camada, feição a feição, numa lista de
// rascunho que só passa para a lista do tratador no fim.
#include <tavru/gdal/TTratadorDeArquivosOGR.h>
#include "GdalComum_p.h"

#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISAreaComFuros.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/ArquivoComum.h>
#include <tavru/platform/Exception.h>

#include <cpl_string.h>
#include <gdal.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QFileDevice>
#include <QFileInfo>
#include <QStringList>
#include <memory>
#include <vector>

namespace tavru {

using namespace gdal;

const TClasseTratador TTratadorDeArquivosOGR::Classe =
    TClasseTratador::De<TTratadorDeArquivosOGR>("TTratadorDeArquivosOGR");

TTratadorDeArquivosOGR::TTratadorDeArquivosOGR(TGISObjetoList &lista) : TGISTratadorDeArquivo(lista) {}

namespace {

struct TLiberarTransformacao
{
    void operator()(OGRCoordinateTransformation *t) const { OGRCoordinateTransformation::DestroyCT(t); }
};

// Lê as feições de uma camada para objetos, com a conversão de coordenadas dela.
class TLeitorDeCamada
{
public:
    TLeitorDeCamada(const QString &arquivo, OGRLayer &camada) : FArquivo(arquivo), FCamada(camada)
    {
        FNome = QString::fromUtf8(camada.GetName());
        OGRFeatureDefn *definicao = camada.GetLayerDefn();
        for (int i = 0; i < definicao->GetFieldCount(); ++i)
            FCampos.append(QString::fromUtf8(definicao->GetFieldDefn(i)->GetNameRef()));
        const OGRSpatialReference *srs = camada.GetSpatialRef();
        if (srs && !(srs->IsGeographic() && srs->IsSame(&Wgs84()))) {
            OGRSpatialReference origem(*srs);
            origem.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
            FTransformacao.reset(OGRCreateCoordinateTransformation(&origem, &Wgs84()));
            if (!FTransformacao)
                Falhar(QStringLiteral("o sistema de coordenadas da camada não se converte para latitude e longitude (%1)")
                           .arg(TSilenciarGdal::Motivo(QStringLiteral("sistema desconhecido"))));
        }
    }

    // Os objetos da feição vão para o fim de `destino`.
    void Ler(OGRFeature &feicao, TGISObjetoList &destino)
    {
        FFeicao = feicao.GetFID();
        const OGRGeometry *geometria = feicao.GetGeometryRef();
        if (!geometria || geometria->IsEmpty())
            return;
        const int antes = destino.Count();
        Geometria(*geometria, destino);
        if (destino.Count() == antes)
            return;
        // Direto nas informações do primeiro objeto (ninguém observa a lista de rascunho; a
        // passagem para a lista do tratador avisa num lote), copiadas para os outros.
        TInformacoes &informacoes = destino.Items(antes)->Informacoes();
        for (int i = 0; i < FCampos.size(); ++i) {
            if (!feicao.IsFieldSetAndNotNull(i)) {
                informacoes.AdicionarCampo(FCampos[i], QString());
                continue;
            }
            // O OGR entrega os textos em UTF-8; bytes que não o são (um arquivo gravado noutra
            // codificação) dariam caracteres trocados em silêncio.
            const char *texto = feicao.GetFieldAsString(i);
            if (!CPLIsUTF8(texto, -1))
                Falhar(QStringLiteral("o campo \"%1\" não está em UTF-8: %2")
                           .arg(FCampos[i], CitarValor(QString::fromLatin1(texto))));
            informacoes.AdicionarCampo(FCampos[i], QString::fromUtf8(texto));
        }
        for (int i = antes + 1; i < destino.Count(); ++i)
            destino.Items(i)->Informacoes().Assign(informacoes);
    }

private:
    [[noreturn]] void Falhar(const QString &motivo) const
    {
        throw EFilerError(QStringLiteral("O arquivo \"%1\", camada \"%2\"%3: %4.")
                              .arg(QFileInfo(FArquivo).fileName(), FNome,
                                   FFeicao == OGRNullFID ? QString() : QStringLiteral(", feição %1").arg(FFeicao),
                                   motivo));
    }

    void Geometria(const OGRGeometry &g, TGISObjetoList &destino)
    {
        if (OGR_GT_IsNonLinear(g.getGeometryType())) {
            std::unique_ptr<OGRGeometry> linear(g.getLinearGeometry());
            if (linear && !OGR_GT_IsNonLinear(linear->getGeometryType()))
                Geometria(*linear, destino);
            return;
        }
        switch (wkbFlatten(g.getGeometryType())) {
        case wkbPoint: {
            const auto &p = *g.toPoint();
            auto ponto = std::make_unique<TGISPonto>();
            ponto->AtribuirPosicao(Posicao(p.getX(), p.getY()));
            destino.Add(ponto.release());
            break;
        }
        case wkbMultiPoint:
            for (const OGRPoint *p : *g.toMultiPoint())
                Geometria(*p, destino);
            break;
        case wkbLineString:
        case wkbLinearRing: {
            auto linha = std::make_unique<TGISLinha>();
            Parte(*g.toLineString(), *linha);
            Terminar(std::move(linha), destino);
            break;
        }
        case wkbMultiLineString: {
            auto linha = std::make_unique<TGISLinha>();
            for (const OGRLineString *l : *g.toMultiLineString())
                Parte(*l, *linha);
            Terminar(std::move(linha), destino);
            break;
        }
        case wkbPolygon:
        case wkbTriangle: {
            auto area = std::make_unique<TGISAreaComFuros>();
            for (const OGRLinearRing *anel : *g.toPolygon())
                Parte(*anel, *area);
            Terminar(std::move(area), destino);
            break;
        }
        case wkbMultiPolygon:
        case wkbPolyhedralSurface:
        case wkbTIN: {
            auto area = std::make_unique<TGISAreaComFuros>();
            for (const OGRPolygon *poligono : *g.toMultiPolygon())
                for (const OGRLinearRing *anel : *poligono)
                    Parte(*anel, *area);
            Terminar(std::move(area), destino);
            break;
        }
        case wkbGeometryCollection:
            for (const OGRGeometry *membro : *g.toGeometryCollection())
                Geometria(*membro, destino);
            break;
        default:
            break; // tipos que não viram objeto do mapa
        }
    }

    TGISPosicao Posicao(double x, double y)
    {
        if (FTransformacao && !FTransformacao->Transform(1, &x, &y))
            Falhar(QStringLiteral("um ponto não se converte para latitude e longitude"));
        TGISPosicao p;
        if (!GrausParaSegundos(x, y, p.Longitude, p.Latitude))
            Falhar(QStringLiteral("o ponto (%1, %2) cai fora de ±180/±90 graus").arg(x, 0, 'g', 12).arg(y, 0, 'g', 12));
        return p;
    }

    // Os vértices da linha como uma parte nova de `linha` (pulada quando vazia).
    void Parte(const OGRSimpleCurve &curva, TGISLinha &linha)
    {
        const int n = curva.getNumPoints();
        if (n <= 0)
            return;
        if (!FTransformacao) { // já em graus: direto da curva, sem cópia
            auto *lista = new TGISPosicaoList;
            linha.Pontos().Add(lista);
            lista->Redimensionar(n);
            TGISPosicao *p = lista->Dados();
            for (int i = 0; i < n; ++i, ++p)
                if (!GrausParaSegundos(curva.getX(i), curva.getY(i), p->Longitude, p->Latitude))
                    Falhar(QStringLiteral("o ponto (%1, %2) cai fora de ±180/±90 graus")
                               .arg(curva.getX(i), 0, 'g', 12)
                               .arg(curva.getY(i), 0, 'g', 12));
            return;
        }
        FX.resize(static_cast<std::size_t>(n));
        FY.resize(static_cast<std::size_t>(n));
        curva.getPoints(FX.data(), sizeof(double), FY.data(), sizeof(double));
        if (!FTransformacao->Transform(n, FX.data(), FY.data()))
            Falhar(QStringLiteral("um ponto não se converte para latitude e longitude"));
        auto *lista = new TGISPosicaoList;
        linha.Pontos().Add(lista);
        lista->Redimensionar(n);
        TGISPosicao *p = lista->Dados();
        for (int i = 0; i < n; ++i, ++p)
            if (!GrausParaSegundos(FX[i], FY[i], p->Longitude, p->Latitude))
                Falhar(QStringLiteral("o ponto (%1, %2) cai fora de ±180/±90 graus")
                           .arg(FX[i], 0, 'g', 12)
                           .arg(FY[i], 0, 'g', 12));
    }

    static void Terminar(std::unique_ptr<TGISLinha> linha, TGISObjetoList &destino)
    {
        if (linha->Pontos().Count() == 0)
            return;
        linha->CalcularLimites();
        destino.Add(linha.release());
    }

    QString FArquivo;
    OGRLayer &FCamada;
    QString FNome;
    QStringList FCampos;
    std::unique_ptr<OGRCoordinateTransformation, TLiberarTransformacao> FTransformacao;
    GIntBig FFeicao = OGRNullFID;
    std::vector<double> FX, FY;
};

} // namespace

void TTratadorDeArquivosOGR::Ler(const QString &nomeArquivo)
{
    // Só um arquivo comum chega ao GDAL (um FIFO não trava a leitura).
    if (!AbrirArquivoComum(nomeArquivo))
        throw EFilerError(QStringLiteral("O arquivo especificado não existe ou não está disponível!"));
    const QString nome = QFileInfo(nomeArquivo).fileName();
    IniciarGdal();
    TSilenciarGdal silencio;
    const QByteArray caminho = NomeParaGdal(nomeArquivo);
    GDALDatasetUniquePtr fonte(GDALDataset::Open(caminho.constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
    if (!fonte)
        throw EFilerError(QStringLiteral("O arquivo \"%1\" não é uma fonte vetorial que o GDAL leia (%2).")
                              .arg(nome, TSilenciarGdal::Motivo(QStringLiteral("formato desconhecido"))));

    std::vector<OGRLayer *> camadas;
    const QString pedida = Opcoes().value(QStringLiteral("Camada")).toString();
    if (!pedida.isEmpty()) {
        OGRLayer *camada = fonte->GetLayerByName(pedida.toUtf8().constData());
        if (!camada) {
            QStringList existentes;
            for (OGRLayer *c : fonte->GetLayers())
                existentes.append(QStringLiteral("\"%1\"").arg(QString::fromUtf8(c->GetName())));
            throw EFilerError(QStringLiteral("O arquivo \"%1\" não tem a camada \"%2\" (camadas: %3).")
                                  .arg(nome, pedida, existentes.isEmpty() ? QStringLiteral("nenhuma")
                                                                          : existentes.join(QStringLiteral(", "))));
        }
        camadas.push_back(camada);
    } else {
        for (OGRLayer *c : fonte->GetLayers())
            camadas.push_back(c);
    }

    TGISObjetoList rascunho; // um erro no meio libera o que ela tem, e a lista nem fica sabendo
    for (std::size_t c = 0; c < camadas.size(); ++c) {
        OGRLayer &camada = *camadas[c];
        TLeitorDeCamada leitor(nomeArquivo, camada);
        const GIntBig total = camada.GetFeatureCount(FALSE);
        GIntBig feitas = 0;
        camada.ResetReading();
        for (OGRFeatureUniquePtr feicao(camada.GetNextFeature()); feicao; feicao.reset(camada.GetNextFeature())) {
            leitor.Ler(*feicao, rascunho);
            if ((++feitas & 255) == 0) {
                const double dentro = total > 0 ? std::min(1.0, static_cast<double>(feitas) / total) : 0.0;
                AvisarProgresso((c + dentro) / camadas.size(), rascunho.Count());
            }
        }
    }
    if (rascunho.Count() == 0)
        throw EFilerError(QStringLiteral("Nenhum objeto reconhecido em \"%1\" (nenhuma feição com pontos, linhas ou "
                                         "polígonos).")
                              .arg(nome));
    Lista().Transferir(rascunho);
    Lista().CalcularLimites();
}

bool TTratadorDeArquivosOGR::Reconhece(QIODevice &fluxo)
{
    auto *arquivo = qobject_cast<QFileDevice *>(&fluxo);
    if (!arquivo || arquivo->fileName().isEmpty() || OutroTratadorPede(arquivo->fileName()))
        return false;
    IniciarGdal();
    TSilenciarGdal silencio;
    return GDALIdentifyDriverEx(NomeParaGdal(arquivo->fileName()).constData(), GDAL_OF_VECTOR, nullptr, nullptr)
           != nullptr;
}

} // namespace tavru

// Plug-in de desenhos MicroStation v7 (DGN) lidos pelo driver DGN do GDAL/OGR.
//
// Cada elemento que o OGR entrega vira registros do contrato de PluginDGN.h:
// - pontos e textos (na origem do texto; os registros não têm texto) viram pontos;
// - linhas, cadeias de linhas, arcos e cadeias complexas (arcos aproximados por linhas pelo OGR)
//   viram linhas;
// - formas e formas complexas (polígonos no OGR) e elipses (linhas fechadas no OGR) viram áreas,
//   um anel por área, sem o vértice que repete o primeiro (o sistema fecha o anel), com o
//   preenchimento quando a forma tem; os buracos de um polígono viram áreas também;
// - células e coleções são achatadas nas partes.
// As cores vêm da tabela de cores do desenho (o OGR as põe no texto de estilo do elemento: PEN
// c:, BRUSH fc:, LABEL c:), a espessura (Weight, 0 a 31) vira a largura da caneta em pixels
// (espessura + 1) e o estilo de linha (Style, 0 a 7) o estilo da caneta.
//
// Compilado duas vezes: TAVRU_DGN_GRAUS ausente entrega as coordenadas da grade como estão
// (leste, norte) e responde 0 a iConfigurarNaDLL, para o sistema perguntar a grade UTM; com
// TAVRU_DGN_GRAUS entrega (latitude, longitude) = (y, x), para desenhos guardados em graus.

#include <tavru/formats/PluginDGN.h>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace {

#ifdef TAVRU_DGN_GRAUS
const char *const Filtro = "Desenhos DGN em graus (*.dgn)|*.dgn";
#else
const char *const Filtro = "Desenhos MicroStation DGN (*.dgn)|*.dgn";
#endif

constexpr std::int32_t Branco = 0x00FFFFFF;
constexpr std::uint8_t PincelSolido = 0;
constexpr std::uint8_t PincelVazio = 1;
constexpr int TipoElipse = 15;

/// O estilo de caneta da casa para o estilo de linha do DGN (0 sólida, 1 pontilhada, 2 traço
/// médio, 3 traço longo, 4 traço-ponto, 5 traço curto, 6 traço-dois-pontos, 7 traço longo e
/// curto).
std::uint8_t EstiloDaCaneta(int estilo)
{
    static const std::uint8_t tabela[8] = {0, 2, 1, 1, 3, 1, 4, 3};
    return estilo >= 0 && estilo < 8 ? tabela[estilo] : 0;
}

int Hexa(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

/// A cor "#rrggbb" do parâmetro `parametro` ("c:", "fc:") da ferramenta `ferramenta` ("PEN(")
/// no texto de estilo, no valor de cor da plataforma (0x00BBGGRR); -1 quando não há.
std::int32_t CorDoEstilo(const char *estilo, const char *ferramenta, const char *parametro)
{
    if (!estilo)
        return -1;
    const char *inicio = std::strstr(estilo, ferramenta);
    if (!inicio)
        return -1;
    inicio += std::strlen(ferramenta);
    const std::size_t tamanho = std::strlen(parametro);
    bool aspas = false;
    for (const char *p = inicio; *p && (aspas || *p != ')'); ++p) {
        if (*p == '"')
            aspas = !aspas;
        if (aspas || (p != inicio && p[-1] != ',' && p[-1] != '(') || std::strncmp(p, parametro, tamanho) != 0)
            continue;
        const char *v = p + tamanho;
        if (*v != '#')
            return -1;
        int rgb[3];
        for (int i = 0; i < 3; ++i) {
            const int alto = Hexa(v[1 + 2 * i]);
            const int baixo = alto < 0 ? -1 : Hexa(v[2 + 2 * i]);
            if (baixo < 0)
                return -1;
            rgb[i] = alto * 16 + baixo;
        }
        return rgb[0] | (rgb[1] << 8) | (rgb[2] << 16);
    }
    return -1;
}

/// Uma importação: o desenho aberto, a função de retorno e o vetor de vértices reaproveitado.
class TImportacao
{
public:
    TImportacao(TavruRetornoDGN retorno, void *contexto) : FRetorno(retorno), FContexto(contexto) {}

    void Feicao(OGRFeature &feicao, int campoTipo, int campoEspessura, int campoEstilo)
    {
        const OGRGeometry *geometria = feicao.GetGeometryRef();
        if (!geometria)
            return;
        const char *estilo = feicao.GetStyleString();
        FCor = CorDoEstilo(estilo, "PEN(", "c:");
        if (FCor < 0)
            FCor = CorDoEstilo(estilo, "LABEL(", "c:");
        if (FCor < 0)
            FCor = CorDoEstilo(estilo, "SYMBOL(", "c:");
        if (FCor < 0)
            FCor = Branco;
        FCorPincel = CorDoEstilo(estilo, "BRUSH(", "fc:");
        const int espessura = campoEspessura >= 0 ? feicao.GetFieldAsInteger(campoEspessura) : 0;
        FLargura = static_cast<std::uint8_t>(std::clamp(espessura + 1, 1, 255));
        FEstilo = EstiloDaCaneta(campoEstilo >= 0 ? feicao.GetFieldAsInteger(campoEstilo) : 0);
        // A elipse do DGN (tipo 15) é uma figura fechada, que o OGR entrega como linha.
        FElipse = campoTipo >= 0 && feicao.GetFieldAsInteger(campoTipo) == TipoElipse;
        Geometria(*geometria, 0);
    }

private:
    void Geometria(const OGRGeometry &g, int nivel)
    {
        if (nivel > 32)
            return;
        switch (wkbFlatten(g.getGeometryType())) {
        case wkbPoint: {
            const auto &p = *g.toPoint();
            TavruRegistroPontoDGN r{};
            r.Posicao = Ponto(p.getX(), p.getY());
            r.Cor = FCor;
            FRetorno(TAVRU_DGN_PONTO, &r, FContexto);
            break;
        }
        case wkbLineString: {
            if (FElipse && g.toLineString()->get_IsClosed()) {
                Area(*g.toLineString());
                break;
            }
            Vertices(*g.toLineString(), false);
            TavruRegistroLinhaDGN r{};
            r.Total = static_cast<std::int32_t>(FVertices.size());
            r.Vertices = FVertices.data();
            r.CorCaneta = FCor;
            r.LarguraCaneta = FLargura;
            r.EstiloCaneta = FEstilo;
            FRetorno(TAVRU_DGN_LINHA, &r, FContexto);
            break;
        }
        case wkbPolygon:
            for (const OGRLinearRing *anel : *g.toPolygon())
                Area(*anel);
            break;
        case wkbMultiPoint:
        case wkbMultiLineString:
        case wkbMultiPolygon:
        case wkbGeometryCollection:
            for (const OGRGeometry *parte : *g.toGeometryCollection())
                Geometria(*parte, nivel + 1);
            break;
        default:
            // Curvas (arcos circulares e o resto): a aproximação por linhas do OGR.
            if (g.hasCurveGeometry()) {
                std::unique_ptr<OGRGeometry> linear(g.getLinearGeometry());
                if (linear)
                    Geometria(*linear, nivel + 1);
            }
            break;
        }
    }

    void Area(const OGRSimpleCurve &anel)
    {
        Vertices(anel, true);
        TavruRegistroAreaDGN r{};
        r.Total = static_cast<std::int32_t>(FVertices.size());
        r.Vertices = FVertices.data();
        r.CorCaneta = FCor;
        r.CorPincel = FCorPincel >= 0 ? FCorPincel : FCor;
        r.LarguraCaneta = FLargura;
        r.EstiloCaneta = FEstilo;
        r.EstiloPincel = FCorPincel >= 0 ? PincelSolido : PincelVazio;
        FRetorno(TAVRU_DGN_AREA, &r, FContexto);
    }

    static TavruPontoDGN Ponto(double x, double y)
    {
#ifdef TAVRU_DGN_GRAUS
        return TavruPontoDGN{y, x};
#else
        return TavruPontoDGN{x, y};
#endif
    }

    void Vertices(const OGRSimpleCurve &curva, bool anel)
    {
        int total = curva.getNumPoints();
        if (anel && total > 1 && curva.getX(0) == curva.getX(total - 1) && curva.getY(0) == curva.getY(total - 1))
            --total;
        FVertices.resize(static_cast<std::size_t>(std::max(total, 0)));
        for (int i = 0; i < total; ++i)
            FVertices[static_cast<std::size_t>(i)] = Ponto(curva.getX(i), curva.getY(i));
    }

    TavruRetornoDGN FRetorno;
    void *FContexto;
    std::vector<TavruPontoDGN> FVertices;
    std::int32_t FCor = Branco;
    std::int32_t FCorPincel = -1;
    std::uint8_t FLargura = 1;
    std::uint8_t FEstilo = 0;
    bool FElipse = false;
};

} // namespace

extern "C" {

TAVRU_DGN_EXPORTA std::int32_t iInicializar(void)
{
    RegisterOGRDGN();
    return GDALGetDriverByName("DGN") ? 1 : 0;
}

// O GDAL não se descarrega (a biblioteca é ligada com -z nodelete): não há o que finalizar, e
// esta função pode rodar na saída do processo, depois dos destrutores do próprio GDAL.
TAVRU_DGN_EXPORTA void iFinalizar(void) {}

TAVRU_DGN_EXPORTA void iObterFiltroArquivos(const char **filtro)
{
    if (filtro)
        *filtro = Filtro;
}

TAVRU_DGN_EXPORTA std::int32_t iConfigurarNaDLL(void)
{
#ifdef TAVRU_DGN_GRAUS
    return 1;
#else
    return 0;
#endif
}

TAVRU_DGN_EXPORTA std::int32_t iImportar(const char *arquivo, TavruRetornoDGN retorno, void *contexto)
{
    if (!arquivo || !retorno)
        return 0;
    try {
        const char *const drivers[] = {"DGN", nullptr};
        GDALDatasetUniquePtr desenho(
            GDALDataset::Open(arquivo, GDAL_OF_VECTOR | GDAL_OF_READONLY, drivers, nullptr, nullptr));
        if (!desenho)
            return 0;
        TImportacao importacao(retorno, contexto);
        for (OGRLayer *camada : desenho->GetLayers()) {
            OGRFeatureDefn *definicao = camada->GetLayerDefn();
            const int tipo = definicao->GetFieldIndex("Type");
            const int espessura = definicao->GetFieldIndex("Weight");
            const int estilo = definicao->GetFieldIndex("Style");
            camada->ResetReading();
            while (OGRFeatureUniquePtr feicao{camada->GetNextFeature()})
                importacao.Feicao(*feicao, tipo, espessura, estilo);
        }
        return 1;
    } catch (...) {
        return 0;
    }
}

} // extern "C"

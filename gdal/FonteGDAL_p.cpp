#include "FonteGDAL_p.h"
#include "GdalComum_p.h"

#include <tavru/platform/Exception.h>

#include <gdal_priv.h>
#include <gdalwarper.h>
#include <ogr_spatialref.h>

#include <QFileInfo>
#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

namespace tavru::gdal {

namespace {

QString Mensagem(const QString &nome, const QString &motivo)
{
    return QStringLiteral("A figura \"%1\" não se lê pelo GDAL: %2.").arg(QFileInfo(nome).fileName(), motivo);
}

} // namespace

TFonteGDAL::TFonteGDAL(const QString &nome)
{
    IniciarGdal();
    TSilenciarGdal silencio;
    FArquivo = GDALDataset::Open(NomeParaGdal(nome).constData(), GDAL_OF_RASTER | GDAL_OF_READONLY);
    if (!FArquivo)
        throw EInOutError(Mensagem(nome, TSilenciarGdal::Motivo(QStringLiteral("formato desconhecido"))));
    try {
        if (FArquivo->GetRasterCount() < 1)
            throw EInOutError(Mensagem(nome, QStringLiteral("não tem bandas")));
        double gt[6];
        const bool temTransformacao = FArquivo->GetGeoTransform(gt) == CE_None;
        const OGRSpatialReference *srs = FArquivo->GetSpatialRef();
        if (!srs && FArquivo->GetGCPCount() > 0)
            srs = FArquivo->GetGCPSpatialRef();
        if (!temTransformacao && FArquivo->GetGCPCount() == 0)
            throw EInOutError(Mensagem(nome, QStringLiteral("a figura não é georreferenciada")));
        const bool girada = temTransformacao && (gt[2] != 0.0 || gt[4] != 0.0);
        const bool graus = srs ? srs->IsGeographic() && srs->IsSame(&Wgs84()) : true;
        if (!graus || girada || !temTransformacao) {
            // Reprojeção para o WGS 84 geográfico (também desfaz a rotação), com uma banda alfa
            // para o que fica fora da figura.
            char *origem = nullptr;
            char *destino = nullptr;
            if (srs)
                srs->exportToWkt(&origem);
            Wgs84().exportToWkt(&destino);
            GDALWarpOptions *opcoes = GDALCreateWarpOptions();
            const int bandas = FArquivo->GetRasterCount();
            opcoes->nBandCount = bandas;
            opcoes->panSrcBands = static_cast<int *>(CPLMalloc(sizeof(int) * bandas));
            opcoes->panDstBands = static_cast<int *>(CPLMalloc(sizeof(int) * bandas));
            for (int b = 0; b < bandas; ++b)
                opcoes->panSrcBands[b] = opcoes->panDstBands[b] = b + 1;
            opcoes->nDstAlphaBand = bandas + 1;
            FVrt = GDALDataset::FromHandle(GDALAutoCreateWarpedVRTEx(GDALDataset::ToHandle(FArquivo), origem, destino,
                                                                     GRA_NearestNeighbour, 0.125, opcoes, nullptr));
            GDALDestroyWarpOptions(opcoes);
            CPLFree(origem);
            CPLFree(destino);
            if (!FVrt)
                throw EInOutError(Mensagem(
                    nome, QStringLiteral("a figura não se converte para latitude e longitude (%1)")
                              .arg(TSilenciarGdal::Motivo(QStringLiteral("sistema de coordenadas desconhecido")))));
            FVrt->GetGeoTransform(gt);
        }
        GDALDataset *usada = Usada();
        FLargura = usada->GetRasterXSize();
        FAltura = usada->GetRasterYSize();
        FOeste = gt[0];
        FNorte = gt[3];
        FLeste = gt[0] + FLargura * gt[1];
        FSul = gt[3] + FAltura * gt[5];
        if (FNorte < FSul)
            std::swap(FNorte, FSul);
        std::int32_t a, b;
        if (!(FLargura > 0 && FAltura > 0 && GrausParaSegundos(FOeste, FNorte, a, b)
              && GrausParaSegundos(FLeste, FSul, a, b)))
            throw EInOutError(Mensagem(nome, QStringLiteral("a figura cai fora de ±180/±90 graus")));

        // Que banda vai para cada canal.
        const int bandas = usada->GetRasterCount();
        int alfa = 0;
        std::vector<int> cores;
        for (int i = 1; i <= bandas; ++i) {
            GDALRasterBand *banda = usada->GetRasterBand(i);
            if (banda->GetColorInterpretation() == GCI_AlphaBand)
                alfa = alfa ? alfa : i;
            else
                cores.push_back(i);
        }
        if (cores.empty())
            throw EInOutError(Mensagem(nome, QStringLiteral("a figura não tem bandas de cor")));
        GDALRasterBand *primeira = usada->GetRasterBand(cores[0]);
        if (primeira->GetColorInterpretation() == GCI_PaletteIndex && primeira->GetColorTable()) {
            FPaleta = true;
            const GDALColorTable *tabela = primeira->GetColorTable();
            for (int i = 0; i < 256 && i < tabela->GetColorEntryCount(); ++i) {
                GDALColorEntry e;
                tabela->GetColorEntryAsRGB(i, &e);
                FCores[i] = qRgba(e.c1, e.c2, e.c3, e.c4);
            }
        }
        if (cores.size() >= 3 && !FPaleta) {
            FBandas[0] = cores[0];
            FBandas[1] = cores[1];
            FBandas[2] = cores[2];
        } else {
            FBandas[0] = FBandas[1] = FBandas[2] = cores[0];
        }
        FBandas[3] = alfa;
    } catch (...) {
        if (FVrt)
            GDALClose(GDALDataset::ToHandle(FVrt));
        GDALClose(GDALDataset::ToHandle(FArquivo));
        throw;
    }
}

TFonteGDAL::~TFonteGDAL()
{
    if (FVrt)
        GDALClose(GDALDataset::ToHandle(FVrt));
    GDALClose(GDALDataset::ToHandle(FArquivo));
}

GDALDataset *TFonteGDAL::Usada() const
{
    return FVrt ? FVrt : FArquivo;
}

QImage TFonteGDAL::Ler(const QRectF &janela, QSize tamanho) const
{
    if (tamanho.isEmpty())
        return {};
    QImage figura(tamanho, QImage::Format_RGBA8888);
    if (figura.isNull())
        return {};
    figura.fill(Qt::transparent);
    // A parte da janela que cai dentro da figura, e o pedaço do resultado que ela ocupa.
    const QRectF dentro = janela.intersected(QRectF(0, 0, FLargura, FAltura));
    if (dentro.isEmpty())
        return figura;
    const double escalaX = tamanho.width() / janela.width();
    const double escalaY = tamanho.height() / janela.height();
    const int x0 = std::clamp(static_cast<int>(std::lround((dentro.left() - janela.left()) * escalaX)), 0, tamanho.width());
    const int y0 = std::clamp(static_cast<int>(std::lround((dentro.top() - janela.top()) * escalaY)), 0, tamanho.height());
    const int x1 = std::clamp(static_cast<int>(std::lround((dentro.right() - janela.left()) * escalaX)), 0, tamanho.width());
    const int y1 = std::clamp(static_cast<int>(std::lround((dentro.bottom() - janela.top()) * escalaY)), 0, tamanho.height());
    const int w = x1 - x0, h = y1 - y0;
    if (w <= 0 || h <= 0)
        return figura;

    GDALRasterIOExtraArg extra;
    INIT_RASTERIO_EXTRA_ARG(extra);
    extra.eResampleAlg = GRIORA_NearestNeighbour;
    extra.bFloatingPointWindowValidity = TRUE;
    extra.dfXOff = dentro.left();
    extra.dfYOff = dentro.top();
    extra.dfXSize = dentro.width();
    extra.dfYSize = dentro.height();
    const int xOff = std::clamp(static_cast<int>(std::floor(dentro.left())), 0, FLargura - 1);
    const int yOff = std::clamp(static_cast<int>(std::floor(dentro.top())), 0, FAltura - 1);
    const int xSize = std::clamp(static_cast<int>(std::ceil(dentro.right())) - xOff, 1, FLargura - xOff);
    const int ySize = std::clamp(static_cast<int>(std::ceil(dentro.bottom())) - yOff, 1, FAltura - yOff);

    std::lock_guard<std::mutex> trava(FTrava);
    TSilenciarGdal silencio;
    GDALDataset *usada = Usada();
    GByte *destino = figura.bits() + static_cast<qsizetype>(y0) * figura.bytesPerLine() + x0 * 4;
    const GSpacing linha = figura.bytesPerLine();
    const auto lerBanda = [&](int banda, GByte *para) {
        return usada->GetRasterBand(banda)->RasterIO(GF_Read, xOff, yOff, xSize, ySize, para, w, h, GDT_Byte, 4, linha,
                                                      &extra)
               == CE_None;
    };
    if (FPaleta) {
        // Os índices no canal vermelho, depois trocados pelas cores da tabela.
        if (!lerBanda(FBandas[0], destino))
            return {};
        for (int y = 0; y < h; ++y) {
            auto *p = reinterpret_cast<quint8 *>(destino + y * linha);
            for (int x = 0; x < w; ++x, p += 4) {
                const QRgb c = FCores[p[0]];
                p[0] = static_cast<quint8>(qRed(c));
                p[1] = static_cast<quint8>(qGreen(c));
                p[2] = static_cast<quint8>(qBlue(c));
                p[3] = static_cast<quint8>(qAlpha(c));
            }
        }
    } else {
        for (int c = 0; c < 3; ++c)
            if (!lerBanda(FBandas[c], destino + c))
                return {};
        if (FBandas[3] == 0) {
            for (int y = 0; y < h; ++y) {
                GByte *p = destino + y * linha + 3;
                for (int x = 0; x < w; ++x, p += 4)
                    *p = 255;
            }
        }
    }
    if (FBandas[3] != 0 && !lerBanda(FBandas[3], destino + 3))
        return {};
    return figura;
}

QImage TFonteGDAL::Previa(int lado) const
{
    const double fator = std::min(1.0, static_cast<double>(lado) / std::max(FLargura, FAltura));
    const QSize tamanho(std::max(1, static_cast<int>(std::lround(FLargura * fator))),
                        std::max(1, static_cast<int>(std::lround(FAltura * fator))));
    return Ler(QRectF(0, 0, FLargura, FAltura), tamanho);
}

} // namespace tavru::gdal

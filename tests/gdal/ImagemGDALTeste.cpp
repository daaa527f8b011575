// Figuras pelo GDAL: um GeoTIFF na zona UTM 23 sul (feito com o gdal-bin, tools/gerar_geotiff_utm.sh)
// fica no lugar (cantos a menos de um pixel), desenha a parte visível em cores plenas, vai e volta
// pelo documento XML; figuras sem georreferência são recusadas sem mudar a imagem.

#include "AjudaGdal.h"

#include <tavru/core/TGISProjecaoMercator.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>

#include <gdal_priv.h>
#include <ogr_spatialref.h>

#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>
#include <cmath>

using namespace tavru;
using namespace tavru::teste;

namespace {

// UTM 23 sul (metros) para (longitude, latitude) em segundos de arco, pelo PROJ do GDAL.
TGISPosicao DeUtm(double leste, double norte)
{
    OGRSpatialReference utm, wgs;
    utm.importFromEPSG(32723);
    wgs.importFromEPSG(4326);
    wgs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    std::unique_ptr<OGRCoordinateTransformation> t(OGRCreateCoordinateTransformation(&utm, &wgs));
    double x = leste, y = norte;
    EXPECT_TRUE(t->Transform(1, &x, &y));
    return TGISPosicao{static_cast<std::int32_t>(std::lround(y * 3600)), static_cast<std::int32_t>(std::lround(x * 3600))};
}

QRgb Cor(const QImage &tela, const TPoint &p)
{
    return tela.pixel(p.X, p.Y) & 0xFFFFFF;
}

// Um GeoTIFF em graus de 400 x 300 pixels vermelhos com uma visão reduzida (overview) de 4 vezes
// pintada de verde: a cor desenhada diz de onde o desenho leu.
void FiguraComVisaoReduzida(const QString &nome)
{
    GDALAllRegister();
    GDALDriver *driver = GetGDALDriverManager()->GetDriverByName("GTiff");
    GDALDatasetUniquePtr ds(driver->Create(nome.toUtf8().constData(), 400, 300, 3, GDT_Byte, nullptr));
    ASSERT_NE(ds, nullptr);
    double gt[6] = {-50.0, 0.01, 0.0, -10.0, 0.0, -0.01};
    ds->SetGeoTransform(gt);
    OGRSpatialReference wgs;
    wgs.importFromEPSG(4326);
    ds->SetSpatialRef(&wgs);
    const int fator = 4;
    ASSERT_EQ(ds->BuildOverviews("NEAREST", 1, &fator, 0, nullptr, nullptr, nullptr), CE_None);
    const double vermelho[3] = {200, 10, 10}, verde[3] = {10, 200, 10};
    for (int b = 1; b <= 3; ++b) {
        ds->GetRasterBand(b)->Fill(vermelho[b - 1]);
        ds->GetRasterBand(b)->GetOverview(0)->Fill(verde[b - 1]);
    }
}

} // namespace

TEST(ImagemGDAL, DeLongeLeDaVisaoReduzidaDePertoDaFigura)
{
    QTemporaryDir dir;
    const QString nome = dir.filePath(QStringLiteral("visoes.tif"));
    FiguraComVisaoReduzida(nome);
    TGISImagemGDAL imagem;
    imagem.Abrir(nome);
    EXPECT_FALSE(imagem.Reprojetada());
    EXPECT_EQ(imagem.AreaImagem(), GISRet(-13 * 3600, -50 * 3600, -10 * 3600, -46 * 3600));
    for (const int largura : {100, 400}) {
        SCOPED_TRACE(largura);
        QImage tela(largura, largura * 3 / 4, QImage::Format_ARGB32_Premultiplied);
        tela.fill(Qt::white);
        TCanvas canvas(&tela);
        TGISProjecaoMercator projecao;
        projecao.DoAtribuirAreaTela(TRect{0, 0, tela.width(), tela.height()});
        projecao.FitToRect(imagem.AreaImagem());
        projecao.FitToRect(imagem.AreaImagem());
        imagem.Desenhar(canvas, projecao, false);
        canvas.AtribuirImagem(nullptr);
        const TPoint centro = projecao.MundoParaTela(GISPosicao(-11 * 3600 - 1800, -48 * 3600));
        EXPECT_EQ(Cor(tela, centro), largura == 100 ? qRgb(10, 200, 10) & 0xFFFFFF : qRgb(200, 10, 10) & 0xFFFFFF);
    }
}

TEST(ImagemGDAL, GeoTIFFEmUTMNoLugarEmCoresPlenasSoNaParteVisivel)
{
    TGISImagemGDAL imagem;
    imagem.Abrir(DadoGdal("utm23s.tif"));
    EXPECT_TRUE(imagem.Reprojetada());
    EXPECT_EQ(imagem.NomeArquivoImagem(), DadoGdal("utm23s.tif"));

    // Os cantos: o retângulo em volta dos quatro cantos UTM, a menos de um pixel da figura.
    const TGISPosicao cantos[] = {DeUtm(760000, 8260000), DeUtm(840000, 8260000), DeUtm(760000, 8200000),
                                  DeUtm(840000, 8200000)};
    TGISRet esperado{cantos[0], cantos[0]};
    for (const TGISPosicao &c : cantos) {
        esperado.Pos1.Latitude = std::min(esperado.Pos1.Latitude, c.Latitude);
        esperado.Pos1.Longitude = std::min(esperado.Pos1.Longitude, c.Longitude);
        esperado.Pos2.Latitude = std::max(esperado.Pos2.Latitude, c.Latitude);
        esperado.Pos2.Longitude = std::max(esperado.Pos2.Longitude, c.Longitude);
    }
    const TGISRet area = imagem.AreaImagem();
    const double pixelLon = double(area.Pos2.Longitude - area.Pos1.Longitude) / imagem.Largura();
    const double pixelLat = double(area.Pos2.Latitude - area.Pos1.Latitude) / imagem.Altura();
    EXPECT_GT(pixelLon, 20.0); // cerca de 1 km: uns 30 segundos
    EXPECT_NEAR(area.Pos1.Longitude, esperado.Pos1.Longitude, pixelLon);
    EXPECT_NEAR(area.Pos2.Longitude, esperado.Pos2.Longitude, pixelLon);
    EXPECT_NEAR(area.Pos1.Latitude, esperado.Pos1.Latitude, pixelLat);
    EXPECT_NEAR(area.Pos2.Latitude, esperado.Pos2.Latitude, pixelLat);
    // A prévia guardada é pequena; a figura inteira não fica na memória.
    EXPECT_LE(std::max(imagem.Imagem().width(), imagem.Imagem().height()), TGISImagemGDAL::LadoDaPrevia);

    // Desenho: o centro de cada quadrante UTM tem a cor exata dele (uma paleta de 8 bits não a
    // guardaria), na figura inteira e ampliada no quadrante noroeste (só ele cabe na tela).
    const struct
    {
        double Leste, Norte;
        QRgb Cor;
    } quadrantes[] = {{780000, 8245000, qRgb(201, 17, 33)},
                      {820000, 8245000, qRgb(23, 181, 47)},
                      {780000, 8215000, qRgb(37, 41, 213)},
                      {820000, 8215000, qRgb(251, 223, 11)}};
    for (const bool ampliada : {false, true}) {
        SCOPED_TRACE(ampliada ? "ampliada" : "inteira");
        QImage tela(400, 300, QImage::Format_ARGB32_Premultiplied);
        tela.fill(Qt::white);
        TCanvas canvas(&tela);
        TGISProjecaoMercator projecao;
        projecao.DoAtribuirAreaTela(TRect{0, 0, 400, 300});
        projecao.FitToRect(area);
        projecao.FitToRect(area); // o ajuste mede em pixels inteiros no zoom anterior
        if (ampliada) {
            const TGISPosicao a = DeUtm(770000, 8255000), b = DeUtm(790000, 8235000);
            projecao.FitToRect(ConcertaRect(TGISRet{a, b}));
        }
        for (int vez = 0; vez < 2; ++vez) // a segunda vez vem das partes guardadas no canvas
            imagem.Desenhar(canvas, projecao, false);
        canvas.AtribuirImagem(nullptr);
        for (const auto &q : quadrantes) {
            const TPoint p = projecao.MundoParaTela(DeUtm(q.Leste, q.Norte));
            const bool naTela = p.X >= 0 && p.Y >= 0 && p.X < 400 && p.Y < 300;
            EXPECT_EQ(naTela, !ampliada || q.Cor == qRgb(201, 17, 33));
            if (naTela)
                EXPECT_EQ(Cor(tela, p), q.Cor & 0xFFFFFF) << p.X << "," << p.Y;
        }
    }
}

TEST(ImagemGDAL, TratadorDocumentoXMLEFigurasSemGeorreferencia)
{
    QTemporaryDir dir;
    // Pelo tratador "GeoTIFF": uma imagem do GDAL no fim da lista, com os limites da lista.
    TGISObjetoList lista;
    ASSERT_TRUE(lista.Ler(DadoGdal("utm23s.tif"), QStringLiteral("GeoTIFF")));
    ASSERT_EQ(lista.Count(), 1);
    auto *imagem = dynamic_cast<TGISImagemGDAL *>(lista.Items(0));
    ASSERT_NE(imagem, nullptr);
    EXPECT_EQ(lista.Limites(), imagem->AreaImagem());

    // No documento XML ela é um `Imagem` com o arquivo: volta como imagem comum, no mesmo lugar,
    // com a figura lida pelo GDAL através da lista de formatos de figura.
    const QString documento = dir.filePath(QStringLiteral("mapa.xml"));
    ASSERT_TRUE(lista.Gravar(documento, QStringLiteral("XML")));
    TGISObjetoList volta;
    ASSERT_TRUE(volta.Ler(documento, QStringLiteral("XML")));
    ASSERT_EQ(volta.Count(), 1);
    const auto *comum = dynamic_cast<const TGISImagem *>(volta.Items(0));
    ASSERT_NE(comum, nullptr);
    EXPECT_EQ(comum->NomeArquivoImagem(), DadoGdal("utm23s.tif"));
    EXPECT_EQ(comum->AreaImagem(), imagem->AreaImagem());
    EXPECT_EQ(comum->Imagem().size(), QSize(imagem->Largura(), imagem->Altura()));

    // Uma figura sem georreferência e um arquivo que o GDAL não abre: erro, a imagem fica.
    const QString png = dir.filePath(QStringLiteral("solta.png"));
    QImage(8, 8, QImage::Format_RGB32).save(png);
    const QString lixo = dir.filePath(QStringLiteral("lixo.tif"));
    {
        QFile f(lixo);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("II*\0lixo", 8);
    }
    const TGISRet antes = imagem->AreaImagem();
    for (const QString &ruim : {png, lixo, dir.filePath(QStringLiteral("nada.tif")), dir.path()}) {
        SCOPED_TRACE(ruim.toStdString());
        EXPECT_THROW(imagem->Abrir(ruim), EInOutError);
        EXPECT_EQ(imagem->AreaImagem(), antes);
        EXPECT_EQ(imagem->NomeArquivoImagem(), DadoGdal("utm23s.tif"));
        EXPECT_THROW(lista.Ler(ruim, QStringLiteral("GeoTIFF")), Exception);
        EXPECT_EQ(lista.Count(), 1);
    }
}

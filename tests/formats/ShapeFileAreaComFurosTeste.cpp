// A área com furos dos polígonos de Shapefiles: desenho e pertinência pela regra par-ímpar, e o
// documento XML, em que ela é um Area de várias partes marcado com Regra="ParImpar".

#include "elements/CanvasGravador.h"

#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISAreaComFuros.h>
#include <tavru/xml/ReconheceArquivoXML.h>

#include <QImage>
#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

// Um quadrado de lado 2m centrado em (0, 0), em segundos de arco (latitude, longitude).
std::vector<TGISPosicao> Quadrado(int m)
{
    return {{-m, -m}, {m, -m}, {m, m}, {-m, m}, {-m, -m}};
}

} // namespace

TEST(AreaComFuros, FuroNaoPintadoNemTocadoEIlhaDentroDoFuroSim)
{
    TGISAreaComFuros area;
    for (int m : {200, 100, 30}) // fora, furo, ilha
        Preencher(area, Quadrado(m));
    area.Pincel().Color = 0x000000FF;
    TProjecaoUmPorUm projecao; // (lat, lon) -> pixel (500 + lon, 500 - lat)
    EXPECT_TRUE(area.Pertence(projecao, TPoint(500 + 150, 500)));
    EXPECT_FALSE(area.Pertence(projecao, TPoint(500 + 60, 500))) << "no furo";
    EXPECT_TRUE(area.Pertence(projecao, TPoint(507, 496))) << "na ilha dentro do furo";
    EXPECT_FALSE(area.Pertence(projecao, TPoint(500 + 250, 500)));

    QImage imagem(1000, 1000, QImage::Format_ARGB32_Premultiplied);
    imagem.fill(Qt::white);
    {
        TCanvas canvas(&imagem);
        area.Desenhar(canvas, projecao, false);
    }
    EXPECT_EQ(imagem.pixelColor(650, 500), QColor(Qt::red));
    EXPECT_EQ(imagem.pixelColor(560, 500), QColor(Qt::white)) << "o furo fica sem preenchimento";
    EXPECT_EQ(imagem.pixelColor(500, 500), QColor(Qt::red));
    // Uma TGISArea com as mesmas partes pinta o furo (cada parte por si).
    TGISArea comum;
    for (int m : {200, 100})
        Preencher(comum, Quadrado(m));
    comum.Pincel().Color = 0x000000FF;
    imagem.fill(Qt::white);
    {
        TCanvas canvas(&imagem);
        comum.Desenhar(canvas, projecao, false);
    }
    EXPECT_EQ(imagem.pixelColor(560, 500), QColor(Qt::red));
}

TEST(AreaComFuros, DocumentoXmlGuardaARegraEUmAreaSemElaContinuaComum)
{
    TGISObjetoList lista;
    auto *area = new TGISAreaComFuros;
    Preencher(*area, Quadrado(200));
    Preencher(*area, Quadrado(100));
    lista.Add(area);
    QStringList linhas;
    TTratadorDeArquivosXML::GravarLista(linhas, lista);
    ASSERT_TRUE(linhas.join("\n").contains(" Regra=\"ParImpar\">")) << linhas.join("\n").toStdString();

    const std::unique_ptr<TGISObjeto> lida = TTratadorDeArquivosXML::ObterObjeto(linhas.join("\r\n"));
    auto *comFuros = dynamic_cast<TGISAreaComFuros *>(lida.get());
    ASSERT_NE(comFuros, nullptr);
    EXPECT_EQ(comFuros->Pontos().Count(), 2);
    EXPECT_EQ(*comFuros->Pontos().Items(1), *area->Pontos().Items(1));

    const std::unique_ptr<TGISObjeto> comum = TTratadorDeArquivosXML::ObterObjeto(
        "<Area><Pontos><Ponto Tipo=\"Inicio\" Latitude=\"1\" Longitude=\"2\"/></Pontos></Area>");
    EXPECT_EQ(&comum->Classe(), &TGISArea::Descritor);
}

// A grade UTM: coordenadas convertidas no elipsoide, fuso e unidade escolhidos (conferidas com o
// GeographicLib), o diálogo cancelado e confirmado pelo provedor roteirizado, o ".geo" gravado
// uma vez e depois reaproveitado, e os valores do ".geo" que não estão nas listas.

#include "AjustesDGN.h"

#include <tavru/elements/GISLinha.h>
#include <tavru/formats/TfrmConfigurarDGN.h>
#include <tavru/platform/Exception.h>

#include <QComboBox>
#include <QRadioButton>
#include <QSpinBox>

using namespace tavru;
using teste::DGN;
using teste::PastaDeTeste;

namespace {

const QString Grade = "teste_grade" + TTratadorDeArquivosDGN::MascaraDeBibliotecas().mid(1);
const QByteArray GeoGRS80 = "Fuso=23\r\nZona=K\r\nElipsoide=18 - GRS 1980\r\nUnidade=metros\r\n";

void Perto(const TGISPosicao &a, const TGISPosicao &b)
{
    EXPECT_NEAR(a.Latitude, b.Latitude, 1);
    EXPECT_NEAR(a.Longitude, b.Longitude, 1);
}

} // namespace

TEST_F(DGN, GradeConvertidaNoElipsoideNoFusoENaUnidadeDoGeo)
{
    ASSERT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDeTeste("grade")), 1);
    const QByteArray geo = "Fuso=23\r\nZona=K\r\nElipsoide=18 - GRS 1980\r\nUnidade=kilometros\r\n";
    Arquivo("km.geo", geo);
    TGISObjetoList lista;
    TTratadorDeArquivosDGN tratador(lista);
    tratador.Ler(Arquivo("km.tsg", "ponto 357.7025 9763.2032 0\nlinha 0 1 0 2 166.224 7352.2361 829.2017 9778.8874\n"));
    EXPECT_TRUE(tratador.Converter());
    EXPECT_EQ(tratador.Zona(), "23K");
    EXPECT_EQ(tratador.Elipsoide(), 18);
    EXPECT_EQ(tratador.Fator(), 1000.0);
    ASSERT_EQ(lista.Count(), 2);
    Perto(lista.ObterGISObjeto(0)->Posicao(), teste::Utm23Sul(357702.5, 9763203.2));
    const auto &linha = dynamic_cast<const TGISLinha &>(*lista.ObterGISObjeto(1));
    Perto(linha.ObterPonto(0, 0), teste::Utm23Sul(166224.0, 7352236.1));
    Perto(linha.ObterPonto(0, 1), teste::Utm23Sul(829201.7, 9778887.4));
    // Com o ".geo" presente não há diálogo e o arquivo não é regravado.
    EXPECT_TRUE(Roteiro->Perguntas.isEmpty());
    EXPECT_EQ(Conteudo(Pasta.filePath("km.geo")), geo);

    // Sem conversão, os mesmos números seriam graus; com ela, a imagem toda em zero fica no zero.
    Arquivo("km2.geo", geo);
    tratador.Ler(Arquivo("km2.tsg", "imagem 0 0 0 0 -\n"));
    EXPECT_EQ(lista.ObterGISObjeto(2)->Area(), GISRet(0, 0, 0, 0));
}

TEST_F(DGN, DialogoCanceladoNaoLeNadaNemGravaOGeo)
{
    ASSERT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDeTeste("grade")), 1);
    TGISObjetoList lista;
    EXPECT_TRUE(lista.Ler(Arquivo("c.tsg", "ponto 357702.5 9763203.2 0\n"), Grade));
    EXPECT_EQ(lista.Count(), 0);
    EXPECT_FALSE(QFile::exists(Pasta.filePath("c.geo")));
    EXPECT_EQ(Roteiro->Perguntas, QStringList{"diálogo: Configuração da carta DGN"});
}

TEST_F(DGN, DialogoConfirmadoGravaOGeoUmaVezEDepoisOReaproveita)
{
    ASSERT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDeTeste("grade")), 1);
    Roteiro->Roteiros.push_back([](QDialog &d) {
        auto &f = dynamic_cast<TfrmConfigurarDGN &>(d);
        // Os controles partem dos padrões do tratador: zona "22K", elipsoide 19, metros.
        EXPECT_EQ(f.Fuso()->value(), 22);
        EXPECT_EQ(f.Zona()->currentText(), "K");
        EXPECT_EQ(f.Elipsoide()->currentIndex(), 19);
        EXPECT_TRUE(f.Metros()->isChecked());
        f.Fuso()->setValue(23);
        f.Elipsoide()->setCurrentIndex(18);
        return true;
    });
    const QString desenho = Arquivo("d.tsg", "ponto 357702.5 9763203.2 0\n");
    TGISObjetoList lista;
    ASSERT_TRUE(lista.Ler(desenho, Grade));
    ASSERT_EQ(lista.Count(), 1);
    Perto(lista.ObterGISObjeto(0)->Posicao(), teste::Utm23Sul(357702.5, 9763203.2));
    EXPECT_EQ(Conteudo(Pasta.filePath("d.geo")), GeoGRS80);

    // Segunda leitura: sem diálogo (a fila vazia cancelaria), e o ".geo" fica como está.
    const QByteArray mexido = "Unidade=metros\r\nElipsoide=18 - GRS 1980\r\nZona=K\r\nFuso=23\r\nOutra=1\r\n";
    Arquivo("d.geo", mexido);
    ASSERT_TRUE(lista.Ler(desenho, Grade));
    EXPECT_EQ(lista.Count(), 2);
    EXPECT_EQ(Roteiro->Perguntas.size(), 1);
    EXPECT_EQ(Conteudo(Pasta.filePath("d.geo")), mexido);
}

TEST_F(DGN, GeoComValoresForaDasListasOuFusoQueNaoENumero)
{
    TfrmConfigurarDGN dialogo;
    dialogo.AtribuirArquivo(Pasta.filePath("carta.dgn"));
    EXPECT_EQ(dialogo.ArquivoGeo(), Pasta.filePath("carta.geo"));
    EXPECT_FALSE(dialogo.Ler());

    // Chaves sem olhar maiúsculas, fins de linha LF, a primeira linha de cada chave vale.
    Arquivo("carta.geo", "fuso= 7\nZONA=Z\nElipsoide=18 - GRS 1980 \nUnidade=KILOMETROS\nFuso=9\n");
    ASSERT_TRUE(dialogo.Ler());
    EXPECT_EQ(dialogo.Fuso()->value(), 7);
    EXPECT_EQ(dialogo.Zona()->currentIndex(), -1);
    EXPECT_EQ(dialogo.Elipsoide()->currentIndex(), -1);
    EXPECT_TRUE(dialogo.Kilometros()->isChecked());

    // Em ISO-8859-1, como as cartas antigas.
    Arquivo("carta.geo", "Fuso=22\r\nZona=J\r\nElipsoide=19 - Hayford ( Datum: C\xf3rrego Alegre )\r\nUnidade=x\r\n");
    ASSERT_TRUE(dialogo.Ler());
    EXPECT_EQ(dialogo.Zona()->currentText(), "J");
    EXPECT_EQ(dialogo.Elipsoide()->currentIndex(), 19);
    EXPECT_TRUE(dialogo.Metros()->isChecked());

    Arquivo("carta.geo", "Fuso=abc\r\n");
    EXPECT_THROW(dialogo.Ler(), EConvertError);
    Arquivo("carta.geo", "Zona=K\r\n");
    EXPECT_THROW(dialogo.Ler(), EConvertError);

    // Executar com a zona fora da lista: a zona sai só com o fuso, o elipsoide sem escolha, e a
    // conversão recusa os dois.
    Arquivo("carta.geo", "Fuso=23\r\nZona=Z\r\nElipsoide=nenhum\r\nUnidade=metros\r\n");
    QString zona = "22K";
    std::int32_t elipsoide = 19;
    double fator = 1000.0;
    ASSERT_TRUE(TfrmConfigurarDGN::Executar(Pasta.filePath("carta.dgn"), zona, elipsoide, fator));
    EXPECT_EQ(zona, "23");
    EXPECT_EQ(elipsoide, -1);
    EXPECT_EQ(fator, 1.0);
    TGISObjetoList lista;
    TTratadorDeArquivosDGN tratador(lista);
    tratador.AtribuirConverter(true);
    tratador.AtribuirZona(zona);
    EXPECT_THROW(tratador.ConvertePonto(500000, 7000000), EConvertError);
}

TEST_F(DGN, DialogoDaCarta)
{
    // As listas que o ".geo" indexa: os elipsoides do UTM e as zonas de cima para baixo.
    TfrmConfigurarDGN d;
    ASSERT_EQ(d.Elipsoide()->count(), 30);
    EXPECT_EQ(d.Elipsoide()->itemText(19), "19 - Hayford ( Datum: Córrego Alegre )");
    QStringList letras;
    for (int i = 0; i < d.Zona()->count(); ++i)
        letras << d.Zona()->itemText(i);
    EXPECT_EQ(letras.join(""), "XWVUTSRQPNMLKJHGFEDC");
    EXPECT_EQ(d.Zona()->currentText(), "K");
    EXPECT_EQ(d.Fuso()->value(), 33);
    d.Fuso()->setValue(-70);
    EXPECT_EQ(d.Fuso()->value(), -70); // sem limites
    EXPECT_TRUE(d.Metros()->isChecked());
}

// Navegação que todo usuário de mapa espera: a roda amplia em torno do cursor, o arrasto com o
// esquerdo desloca (quando ligado), as teclas deslocam e ampliam, a barra de escala mede pela
// geodésica e não entra no buffer, e a dica mostra o rótulo do objeto sob o cursor parado.

#include "AuxiliaresControle.h"

#include <tavru/companions/geodesy/Distancia.h>
#include <tavru/control/TGISBarraDeEscala.h>
#include <tavru/control/TGISBarraDeManipulacao.h>

#include <QCursor>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <cmath>
#include <gtest/gtest.h>

using namespace tavru;
using namespace tavru::teste;

namespace {

class Navegacao : public ::testing::Test
{
protected:
    void SetUp() override
    {
        gis.resize(400, 300);
        gis.AtribuirColor(clWhite);
        auto *objeto = new TObjetoRet(Graus(-20, -60, -10, -40), nullptr, QStringLiteral("Alvo"));
        objeto->AtribuirRotuloVisivel(true);
        NovaCamada(gis, "c").Objetos().Add(objeto);
        gis.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&gis));
        barra.AtribuirGis(&gis);
        gis.Zerado(); // "Nome" nos rótulos
        gis.Visao(GISPosicao(-15 * 3600, -50 * 3600), 40.0);
    }
    TGISProjecao &Projecao() { return *gis.Projecao(); }
    /// Gira a roda em `p`: `angulo` em oitavos de grau, `pixels` a rolagem fina. Devolve se o
    /// evento foi aceito.
    bool Roda(QPoint p, int angulo, int pixels = 0)
    {
        QWheelEvent e(QPointF(p), QPointF(gis.mapToGlobal(p)), QPoint(0, pixels), QPoint(0, angulo), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&gis, &e);
        return e.isAccepted();
    }
    bool Tecla(int tecla)
    {
        QKeyEvent e(QEvent::KeyPress, tecla, Qt::NoModifier);
        QCoreApplication::sendEvent(&gis, &e);
        return e.isAccepted();
    }
    /// Se a posição `w` está sob o pixel `p`: a menos de 1 pixel, ou a menos de 1 segundo de arco
    /// (o que for maior).
    ::testing::AssertionResult Sob(const TGISPosicao &w, QPoint p)
    {
        const TPoint q = Projecao().MundoParaTela(w);
        const TGISPosicao v = Projecao().TelaParaMundo(TPoint(p.x(), p.y()));
        if ((std::abs(q.X - p.x()) <= 1 && std::abs(q.Y - p.y()) <= 1)
            || (std::abs(v.Latitude - w.Latitude) <= 1 && std::abs(v.Longitude - w.Longitude) <= 1))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "a posição " << w.Latitude << "," << w.Longitude << " está em "
                                             << q.X << "," << q.Y << ", não em " << p.x() << "," << p.y();
    }
    TGISPosicao Mundo(QPoint p) { return Projecao().TelaParaMundo(TPoint(p.x(), p.y())); }

    TGisContador gis;
    TGISBarraDeManipulacao barra;
};

} // namespace

TEST_F(Navegacao, RodaAmpliaEReduzEmTornoDoCursorEVoltaAMesmaVisao)
{
    // Longe do zoom baixo (um pixel vale muitos segundos) e no alto (um segundo vale vários pixels).
    for (double zoom : {40.0, 30000.0}) {
        gis.Visao(GISPosicao(-15 * 3600, -50 * 3600), zoom);
        const QPoint p(55, 240); // fora do centro, x diferente de y
        const TGISPosicao w = Mundo(p);
        const TGISPosicao centro = Projecao().Centro();
        const int desenhos = gis.Desenhos;
        EXPECT_TRUE(Roda(p, 120));
        EXPECT_DOUBLE_EQ(Projecao().Zoom(), zoom * 1.2) << zoom;
        EXPECT_TRUE(Sob(w, p)) << zoom;
        EXPECT_EQ(gis.Desenhos, desenhos + 1);
        EXPECT_TRUE(Roda(p, -120));
        EXPECT_NEAR(Projecao().Zoom(), zoom, zoom * 1e-12);
        EXPECT_TRUE(Sob(w, p)) << zoom;
        EXPECT_TRUE(Sob(centro, QPoint(200, 150))) << zoom; // a mesma visão de antes
        // Dois entalhes num evento só: 1,2 ao quadrado.
        Roda(p, 240);
        EXPECT_NEAR(Projecao().Zoom(), zoom * 1.44, zoom * 1e-12);
        EXPECT_TRUE(Sob(w, p)) << zoom;
    }

    // No limite da projeção o zoom para, e o ponto sob o cursor continua nele.
    gis.Visao(GISPosicao(-15 * 3600, -50 * 3600), TGISProjecao::ZoomMaximo);
    const TGISPosicao w = Mundo(QPoint(300, 40));
    Roda(QPoint(300, 40), 120);
    EXPECT_EQ(Projecao().Zoom(), TGISProjecao::ZoomMaximo);
    EXPECT_TRUE(Sob(w, QPoint(300, 40)));
}

TEST_F(Navegacao, RolagemFinaDoTrackpadAmpliaAosPoucos)
{
    const double zoom = Projecao().Zoom();
    const QPoint p(320, 70);
    const TGISPosicao w = Mundo(p);
    // Meio entalhe em pixels, duas vezes, vale um entalhe; o giro que vem junto é ignorado.
    Roda(p, 120, TGISBarraDeManipulacao::PixelsPorEntalhe / 2);
    EXPECT_NEAR(Projecao().Zoom(), zoom * std::sqrt(1.2), zoom * 1e-12);
    Roda(p, 120, TGISBarraDeManipulacao::PixelsPorEntalhe / 2);
    EXPECT_NEAR(Projecao().Zoom(), zoom * 1.2, zoom * 1e-12);
    EXPECT_TRUE(Sob(w, p));
    // Frações de entalhe no giro (rodas sem degraus) também.
    Roda(p, -30);
    EXPECT_NEAR(Projecao().Zoom(), zoom * 1.2 / std::pow(1.2, 0.25), zoom * 1e-12);
}

TEST_F(Navegacao, ArrastoComOEsquerdoDeslocaSoQuandoLigadoEPassaDeQuatroPixels)
{
    TFerramentaGravadora ferramenta;
    gis.RegistrarMouseEvent(&ferramenta);
    QCursor::setPos(gis.mapToGlobal(QPoint(100, 100)));
    auto arrastar = [&](QPoint de, QPoint ate) {
        ferramenta.Chamadas.clear();
        QTest::mousePress(&gis, Qt::LeftButton, Qt::NoModifier, de);
        QTest::mouseMove(&gis, ate);
        QTest::mouseRelease(&gis, Qt::LeftButton, Qt::NoModifier, ate);
        return ferramenta.SemPinturas().filter("click").size();
    };
    const TGISPosicao centro = Projecao().Centro();

    // Desligado (o padrão): o arrasto não desloca e o soltar é clique.
    EXPECT_FALSE(barra.ArrastarParaMover());
    EXPECT_EQ(arrastar(QPoint(100, 100), QPoint(160, 65)), 1);
    EXPECT_EQ(Projecao().Centro(), centro);

    barra.AtribuirArrastarParaMover(true);
    // No limite (4 pixels) ainda é clique, sem deslocar; um pouco além, desloca e não é clique.
    EXPECT_EQ(arrastar(QPoint(100, 100), QPoint(104, 100)), 1);
    EXPECT_EQ(Projecao().Centro(), centro);
    EXPECT_EQ(arrastar(QPoint(100, 100), QPoint(104, 101)), 0);
    EXPECT_NE(Projecao().Centro(), centro);
    EXPECT_EQ(barra.Estado(), meSemAcao);

    // Um arrasto longo leva o ponto do mundo do aperto para o ponto do soltar.
    const TGISPosicao w = Mundo(QPoint(100, 100));
    EXPECT_EQ(arrastar(QPoint(100, 100), QPoint(160, 65)), 0);
    EXPECT_TRUE(Sob(w, QPoint(160, 65)));
    EXPECT_EQ(barra.Estado(), meSemAcao);

    // Com uma ferramenta de zoom o arrasto com o esquerdo não desloca: é o clique dela.
    barra.AtribuirEstado(meAmpliar);
    const double zoom = Projecao().Zoom();
    EXPECT_EQ(arrastar(QPoint(100, 100), QPoint(160, 65)), 1);
    EXPECT_DOUBLE_EQ(Projecao().Zoom(), zoom * 1.2);
    gis.RemoverRegistroMouseEvent(&ferramenta);
}

TEST_F(Navegacao, TeclasDeslocamUmDecimoAmpliamEAjustam)
{
    const QPoint meio(200, 150);
    TGISPosicao centro = Projecao().Centro();
    EXPECT_TRUE(Tecla(Qt::Key_Right)); // a visão vai para leste: o centro antigo fica 40 px à esquerda
    EXPECT_TRUE(Sob(centro, meio - QPoint(40, 0)));
    centro = Projecao().Centro();
    EXPECT_TRUE(Tecla(Qt::Key_Up)); // para o norte: o centro antigo desce 30 px
    EXPECT_TRUE(Sob(centro, meio + QPoint(0, 30)));
    centro = Projecao().Centro();
    Tecla(Qt::Key_Left);
    Tecla(Qt::Key_Down);
    EXPECT_TRUE(Sob(centro, meio + QPoint(40, -30)));

    const double zoom = Projecao().Zoom();
    centro = Projecao().Centro();
    EXPECT_TRUE(Tecla(Qt::Key_Plus));
    EXPECT_DOUBLE_EQ(Projecao().Zoom(), zoom * 1.2);
    EXPECT_TRUE(Sob(centro, meio));
    EXPECT_TRUE(Tecla(Qt::Key_Minus));
    EXPECT_NEAR(Projecao().Zoom(), zoom, zoom * 1e-12);
    Tecla(Qt::Key_Right);
    EXPECT_TRUE(Tecla(Qt::Key_Home)); // ajusta ao objeto: centrado nele, com outro zoom
    EXPECT_TRUE(Sob(GISPosicao(-15 * 3600, -50 * 3600), meio));
    EXPECT_NE(Projecao().Zoom(), zoom);

    // Uma tecla que ninguém trata segue para o pai; sem barra, nem as setas são tratadas.
    EXPECT_FALSE(Tecla(Qt::Key_A));
    barra.AtribuirGis(nullptr);
    EXPECT_FALSE(Tecla(Qt::Key_Right));
    EXPECT_FALSE(Roda(meio, 120));
}

TEST_F(Navegacao, RodaETeclasChegamAQualquerFerramenta)
{
    struct TFerramenta : IGISMouseEvent
    {
        bool GISMouseWheel(const TPoint &p, const TPoint &a, const TPoint &px, TShiftState s) override
        {
            Chamadas << QStringLiteral("roda %1,%2 %3 %4 s%5").arg(p.X).arg(p.Y).arg(a.Y).arg(px.Y).arg(s);
            return false;
        }
        bool GISKeyDown(int tecla, TShiftState s) override
        {
            Chamadas << QStringLiteral("tecla %1 s%2").arg(tecla).arg(s);
            return tecla == Qt::Key_Escape;
        }
        QStringList Chamadas;
    } ferramenta;
    barra.AtribuirGis(nullptr);
    gis.RegistrarMouseEvent(&ferramenta);
    EXPECT_FALSE(Roda(QPoint(30, 40), -240, 7));
    QKeyEvent esc(QEvent::KeyPress, Qt::Key_Escape, Qt::ShiftModifier);
    QCoreApplication::sendEvent(&gis, &esc);
    EXPECT_TRUE(esc.isAccepted());
    EXPECT_EQ(ferramenta.Chamadas, QStringList({"roda 30,40 -240 7 s0", QStringLiteral("tecla %1 s1").arg(Qt::Key_Escape)}));
    gis.RemoverRegistroMouseEvent(&ferramenta);
}

TEST_F(Navegacao, BarraDeEscalaMedePelaGeodesicaESoNaTela)
{
    auto verificar = [&](const TGISBarraDeEscala::TRegua &r, double metros) {
        ASSERT_GT(r.Pixels, 0);
        // O valor é redondo: 1, 2 ou 5 vezes uma potência de 10.
        const double mantissa = r.Valor / std::pow(10.0, std::floor(std::log10(r.Valor)));
        EXPECT_TRUE(std::abs(mantissa - 1) < 1e-9 || std::abs(mantissa - 2) < 1e-9 || std::abs(mantissa - 5) < 1e-9)
            << r.Valor;
        auto distancia = [&](int pixels) {
            return Distancia(Projecao().TelaParaMundo(TPoint(r.X, r.Y)), Projecao().TelaParaMundo(TPoint(r.X + pixels, r.Y)))
                * MetrosPorMilhaNautica / metros;
        };
        // A régua mede o valor a menos de um pixel.
        EXPECT_LE(distancia(r.Pixels - 1), r.Valor);
        EXPECT_GE(distancia(r.Pixels + 1), r.Valor);
        EXPECT_LE(r.Pixels, TGISBarraDeEscala::LarguraMaxima);
    };
    const TRect tela(0, 0, 400, 300);
    // No equador e a 60° S a mesma largura de tela mede distâncias diferentes (a longitude encolhe).
    TGISBarraDeEscala::TRegua km[2];
    for (int i : {0, 1}) {
        gis.Visao(GISPosicao(-60 * 3600 * i, -50 * 3600), 40.0);
        verificar(km[i] = TGISBarraDeEscala::ReguaKm(Projecao(), tela), 1000.0);
        verificar(TGISBarraDeEscala::ReguaMilhas(Projecao(), tela), MetrosPorMilhaNautica);
    }
    EXPECT_GT(km[1].Pixels / km[1].Valor, 1.6 * km[0].Pixels / km[0].Valor);

    // Desenhada só na imagem da tela: o buffer fica igual, e a tela muda só no canto da régua.
    EXPECT_FALSE(gis.MostrarEscala());
    gis.Desenhar();
    const QImage sem = gis.Buffer().copy();
    gis.AtribuirMostrarEscala(true);
    gis.Desenhar();
    EXPECT_EQ(gis.Buffer(), sem);
    const QImage tela2 = gis.ImagemTela().copy();
    EXPECT_NE(tela2.copy(0, 220, 200, 80), sem.copy(0, 220, 200, 80));
    EXPECT_EQ(tela2.copy(0, 0, 400, 200), sem.copy(0, 0, 400, 200));

    // Perto do polo (ou fora do mundo) não há régua.
    gis.Visao(GISPosicao(93 * 3600, 0), 40.0);
    EXPECT_EQ(TGISBarraDeEscala::ReguaKm(Projecao(), tela).Pixels, 0);
}

TEST_F(Navegacao, DicaMostraORotuloDoObjetoSobOCursorParado)
{
    gis.Visao(GISPosicao(-15 * 3600, -50 * 3600), 10.0); // o objeto não cobre a tela toda
    const TPoint centro = Projecao().MundoParaTela(GISPosicao(-15 * 3600, -50 * 3600));
    QHelpEvent sobre(QEvent::ToolTip, QPoint(centro.X, centro.Y), gis.mapToGlobal(QPoint(centro.X, centro.Y)));
    QCoreApplication::sendEvent(&gis, &sobre);
    EXPECT_TRUE(QToolTip::isVisible());
    EXPECT_EQ(QToolTip::text(), QStringLiteral("Alvo"));
    QHelpEvent fora(QEvent::ToolTip, QPoint(5, 5), gis.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&gis, &fora);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 5000)); // some (depois do atraso do Qt)
}

// A demonstração num X de verdade (Xvfb) com entrada sintética (xdotool), como um usuário: um
// entalhe da roda amplia em torno do cursor, um arrasto leva o mapa junto sem ser clique, e um
// clique sobre vários objetos abre a lista deles, em que escolher seleciona. O aplicativo diz a
// visão e a seleção na saída padrão (TAVRU_MAPA_ESTADO).

#include "Processos.h"

#include <QElapsedTimer>
#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QRegularExpression>
#include <QStandardPaths>
#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>

using namespace tavru::teste;

namespace {

/// O que o aplicativo diz numa linha "estado ...".
struct TEstado
{
    double Zoom = 0;
    long long CentroLat = 0, CentroLon = 0;
    QString Selecionado;
    int MapaX = 0, MapaY = 0, Largura = 0, Altura = 0;
    long long Lat1 = 0, Lon1 = 0, Lat2 = 0, Lon2 = 0;
    long long CursorLat = 0, CursorLon = 0;
    int PontoX = 0, PontoY = 0;

    /// O pixel da tela (X) de uma posição do mundo, pela visão linear do mapa.
    QPoint Pixel(long long lat, long long lon) const
    {
        return QPoint(MapaX + int(std::lround(double(lon - Lon1) / double(Lon2 - Lon1) * Largura)),
                      MapaY + int(std::lround(double(Lat2 - lat) / double(Lat2 - Lat1) * Altura)));
    }
    /// Segundos de arco num pixel (o maior dos dois eixos), e pelo menos 1.
    double Tolerancia() const
    {
        return std::max({1.0, double(Lon2 - Lon1) / Largura, double(Lat2 - Lat1) / Altura});
    }
};

bool LerEstado(const QString &linha, TEstado &e)
{
    static const QRegularExpression padrao(QStringLiteral(
        R"(^estado zoom=(\S+) centro=(-?\d+),(-?\d+) selecionado=(.*) mapa=(-?\d+),(-?\d+),(\d+),(\d+) )"
        R"(mundo=(-?\d+),(-?\d+),(-?\d+),(-?\d+) cursor=(-?\d+),(-?\d+) ponto=(-?\d+),(-?\d+)$)"));
    const QRegularExpressionMatch m = padrao.match(linha);
    if (!m.hasMatch())
        return false;
    auto n = [&](int i) { return m.captured(i).toLongLong(); };
    e.Zoom = m.captured(1).toDouble();
    e.CentroLat = n(2), e.CentroLon = n(3);
    e.Selecionado = m.captured(4);
    e.MapaX = int(n(5)), e.MapaY = int(n(6)), e.Largura = int(n(7)), e.Altura = int(n(8));
    e.Lat1 = n(9), e.Lon1 = n(10), e.Lat2 = n(11), e.Lon2 = n(12);
    e.CursorLat = n(13), e.CursorLon = n(14);
    e.PontoX = int(n(15)), e.PontoY = int(n(16));
    return true;
}

/// Lê linhas do aplicativo até `condicao` aceitar o estado depois de uma linha "estado ..." (ou
/// "lista ...", quando `lista` é dado: ela recebe a última vista), por até `ms` milissegundos. Devolve se achou.
bool Esperar(QProcess &app, TEstado &e, const std::function<bool(const TEstado &)> &condicao,
             QString *lista = nullptr, int ms = 20000)
{
    QElapsedTimer relogio;
    relogio.start();
    while (relogio.elapsed() < ms) {
        while (app.canReadLine()) {
            const QString linha = QString::fromUtf8(app.readLine()).trimmed();
            const bool ehLista = linha.startsWith(QLatin1String("lista "));
            if (lista && ehLista)
                *lista = linha;
            if ((LerEstado(linha, e) || (lista && ehLista)) && condicao(e))
                return true;
        }
        if (app.state() == QProcess::NotRunning)
            return false;
        app.waitForReadyRead(200);
    }
    return false;
}

class DemoNavegacao : public ::testing::Test
{
protected:
    void SetUp() override
    {
        xdotool = QStandardPaths::findExecutable(QStringLiteral("xdotool"));
        const QString xvfb = QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
        if (xvfb.isEmpty() || xdotool.isEmpty())
            GTEST_SKIP() << "Xvfb ou xdotool não instalados";
        tela = IniciarXvfb(servidor, xvfb);
        if (tela.isEmpty())
            GTEST_SKIP() << "o Xvfb não abriu uma tela";
        QProcessEnvironment ambiente = AmbienteNaTela(tela);
        ambiente.insert("TAVRU_MAPA_ESTADO", "1");
        app.setProcessEnvironment(ambiente);
        app.setProcessChannelMode(QProcess::SeparateChannels);
        app.start(QStringLiteral(TAVRU_MAPA), {});
        ASSERT_TRUE(app.waitForStarted(10000));
    }
    void TearDown() override
    {
        Encerrar(app);
        Encerrar(servidor);
    }
    void Xdotool(const QStringList &argumentos)
    {
        QProcess p;
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        ambiente.insert("DISPLAY", tela);
        p.setProcessEnvironment(ambiente);
        p.start(xdotool, argumentos);
        ASSERT_TRUE(p.waitForFinished(10000));
        ASSERT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
    }
    static QString N(int v) { return QString::number(v); }

    QString xdotool;
    QString tela;
    QProcess servidor;
    QProcess app;
};

} // namespace

TEST_F(DemoNavegacao, RodaArrastoEListaDeObjetosComEntradaDeVerdade)
{
    TEstado e;
    ASSERT_TRUE(Esperar(app, e, [](const TEstado &s) { return s.Largura > 300 && s.Altura > 300; }))
        << app.readAllStandardError().toStdString();
    // Um ponto do mapa fora do centro (x diferente de y), longe das bordas.
    const QPoint p(e.MapaX + e.Largura / 3, e.MapaY + e.Altura / 2 + 40);
    // A janela pode ainda estar aparecendo: move de novo até o mapa ver o cursor em `p`.
    bool noPonto = false;
    for (int tentativa = 0; tentativa < 10 && !noPonto; ++tentativa) {
        Xdotool({"mousemove", N(p.x() - 3), N(p.y() - 2), "mousemove", N(p.x()), N(p.y())});
        noPonto = Esperar(app, e, [&](const TEstado &s) { return QPoint(s.MapaX + s.PontoX, s.MapaY + s.PontoY) == p; },
                          nullptr, 2000);
    }
    ASSERT_TRUE(noPonto);
    const TEstado antes = e;

    // Um entalhe da roda para longe do usuário: 1,2 vez o zoom, e o mundo sob o cursor fica nele.
    Xdotool({"click", "4"});
    ASSERT_TRUE(Esperar(app, e, [&](const TEstado &s) { return s.Zoom != antes.Zoom; }));
    EXPECT_NEAR(e.Zoom / antes.Zoom, 1.2, 1e-6);
    EXPECT_LE(std::abs(e.CursorLat - antes.CursorLat), e.Tolerancia());
    EXPECT_LE(std::abs(e.CursorLon - antes.CursorLon), e.Tolerancia());
    const TEstado ampliado = e;

    // Arrastar com o esquerdo leva o mundo junto: o ponto do aperto fica sob o ponto do soltar.
    const QPoint q = p + QPoint(90, -45);
    Xdotool({"mousedown", "1", "mousemove", N(p.x() + 30), N(p.y() - 15), "mousemove", N(p.x() + 60), N(p.y() - 30),
             "mousemove", N(q.x()), N(q.y()), "mouseup", "1"});
    QString lista;
    ASSERT_TRUE(Esperar(app, e, [&](const TEstado &s) {
        return QPoint(s.MapaX + s.PontoX, s.MapaY + s.PontoY) == q && s.CentroLon != ampliado.CentroLon;
    }, &lista));
    EXPECT_EQ(e.Zoom, ampliado.Zoom);
    EXPECT_LE(std::abs(e.CursorLat - ampliado.CursorLat), e.Tolerancia());
    EXPECT_LE(std::abs(e.CursorLon - ampliado.CursorLon), e.Tolerancia());
    EXPECT_TRUE(lista.isEmpty()) << lista.toStdString(); // o arrasto não foi clique
    EXPECT_TRUE(e.Selecionado.isEmpty());

    // Brasília (15°46'53''S 47°55'05''W) fica dentro do Distrito Federal: um clique nela dá uma
    // lista de vários objetos; escolher a cidade a seleciona.
    const QPoint brasilia = e.Pixel(-(15 * 3600 + 46 * 60 + 53), -(47 * 3600 + 55 * 60 + 5));
    ASSERT_TRUE(QRect(e.MapaX, e.MapaY, e.Largura, e.Altura).contains(brasilia));
    Xdotool({"mousemove", N(brasilia.x()), N(brasilia.y()), "click", "1"});
    ASSERT_TRUE(Esperar(app, e, [&](const TEstado &) { return !lista.isEmpty(); }, &lista));
    static const QRegularExpression padrao(QStringLiteral(R"(^lista (-?\d+),(-?\d+),(\d+),(\d+) linha=(\d+) itens=(.*)$)"));
    const QRegularExpressionMatch m = padrao.match(lista);
    ASSERT_TRUE(m.hasMatch()) << lista.toStdString();
    const QStringList itens = m.captured(6).split(QLatin1Char('|'));
    EXPECT_GE(itens.size(), 2);
    EXPECT_TRUE(itens.contains(QStringLiteral("Distrito Federal")));
    const int linha = itens.indexOf(QStringLiteral("Brasília"));
    ASSERT_GE(linha, 0) << lista.toStdString();
    EXPECT_TRUE(e.Selecionado.isEmpty()); // nada antes da escolha
    const int altura = m.captured(5).toInt();
    const QPoint item(m.captured(1).toInt() + m.captured(3).toInt() / 2, m.captured(2).toInt() + 1 + altura * linha + altura / 2);
    Xdotool({"mousemove", N(item.x()), N(item.y()), "click", "1"});
    ASSERT_TRUE(Esperar(app, e, [](const TEstado &s) { return s.Selecionado == QStringLiteral("Brasília"); }));
    EXPECT_EQ(e.Zoom, ampliado.Zoom); // escolher não mexe na visão
}

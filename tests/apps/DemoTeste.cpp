// O aplicativo de demonstração como um usuário o vê: sem tela ele grava o mapa num PNG e diz onde;
// com tela (um Xvfb de verdade) ele abre a janela, e uma fotografia da tela tirada de fora do
// programa (xwd) mostra o mapa, não uma janela em branco.

#include "Processos.h"
#include "Xwd.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>
#include <QtEndian>
#include <gtest/gtest.h>

using namespace tavru::teste;

namespace {

const QString Aplicativo = QStringLiteral(TAVRU_MAPA);

// Cores do mapa embutido: o mar (fundo do mapa) e o preenchimento do Brasil no mapa de exemplo;
// e o vermelho do documento aberto pela linha de comando.
const QRgb CorDoMar = qRgb(170, 205, 235);
const QRgb CorDoContinente = qRgb(250, 243, 220);

struct TContagem
{
    int Distintas = 0;
    int Mar = 0;
    int Continente = 0;
    int Vermelho = 0;
};

TContagem Contar(const QImage &imagem, const QRect &regiao)
{
    QSet<QRgb> cores;
    TContagem c;
    for (int y = regiao.top(); y <= regiao.bottom(); ++y)
        for (int x = regiao.left(); x <= regiao.right(); ++x) {
            const QRgb p = imagem.pixel(x, y) | 0xFF000000u;
            cores.insert(p);
            c.Mar += p == CorDoMar;
            c.Continente += p == CorDoContinente;
            c.Vermelho += p == qRgb(255, 0, 0);
        }
    c.Distintas = int(cores.size());
    return c;
}

QProcessEnvironment AmbienteSemTela()
{
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    for (const char *variavel : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        ambiente.remove(QString::fromLatin1(variavel));
    return ambiente;
}

/// Um quadrado vermelho no meio do Brasil, num documento de uma camada.
const QByteArray Quadrado = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<CAMADA>\r\n"
                            "<Area Estilo=\"0\" Cor=\"0000FF\" EstiloPreenchimento=\"0\" CorPreenchimento=\"0000FF\">\r\n<Pontos>\r\n"
                            "<Ponto Tipo=\"Inicio\" Latitude=\"-36000\" Longitude=\"-198000\"/>\r\n"
                            "<Ponto Latitude=\"-36000\" Longitude=\"-162000\"/>\r\n"
                            "<Ponto Latitude=\"-72000\" Longitude=\"-162000\"/>\r\n"
                            "<Ponto Latitude=\"-72000\" Longitude=\"-198000\"/>\r\n"
                            "</Pontos>\r\n</Area>\r\n</CAMADA>\r\n";

/// Grava `bytes` em `nome` dentro de `pasta`; devolve o caminho.
QString Escrever(const QTemporaryDir &pasta, const char *nome, const QByteArray &bytes)
{
    QFile arquivo(pasta.filePath(QString::fromLatin1(nome)));
    EXPECT_TRUE(arquivo.open(QIODevice::WriteOnly));
    arquivo.write(bytes);
    return arquivo.fileName();
}

/// Roda o aplicativo sem tela até o fim; devolve o código de saída (-1 se não terminou).
int Rodar(QProcess &processo, const QStringList &argumentos)
{
    processo.start(Aplicativo, argumentos);
    return processo.waitForFinished(60000) ? processo.exitCode() : -1;
}

} // namespace

TEST(TavruMapa, SemTelaGravaOMapaNumPngComOsDocumentosDaLinhaDeComando)
{
    QTemporaryDir pasta;
    ASSERT_TRUE(pasta.isValid());
    QProcessEnvironment ambiente = AmbienteSemTela();
    ambiente.insert("TMPDIR", pasta.path());
    QProcess processo;
    processo.setProcessEnvironment(ambiente);
    ASSERT_EQ(Rodar(processo, {}), 0) << processo.readAllStandardError().toStdString();
    const QString caminho = QString::fromLocal8Bit(processo.readAllStandardOutput()).trimmed();
    EXPECT_EQ(caminho, pasta.filePath("tavru-mapa.png"));
    const QImage mapa(caminho);
    ASSERT_FALSE(mapa.isNull());
    EXPECT_EQ(mapa.size(), QSize(1000, 760));
    const TContagem c = Contar(mapa, mapa.rect());
    EXPECT_GE(c.Distintas, 8);
    EXPECT_GT(c.Mar, 1000);
    EXPECT_GT(c.Continente, 1000);

    // Com --png, o arquivo pedido.
    const QString pedido = pasta.filePath("outro.png");
    EXPECT_EQ(Rodar(processo, {"--png", pedido}), 0);
    EXPECT_EQ(QString::fromLocal8Bit(processo.readAllStandardOutput()).trimmed(), pedido);
    EXPECT_EQ(QImage(pedido), mapa);

    // Um documento da linha de comando abre numa camada nova: um quadrado vermelho no meio do Brasil.
    const QString documento = Escrever(pasta, "quadrado.xml", Quadrado);
    const QString comDocumento = pasta.filePath("com.png");
    EXPECT_EQ(Rodar(processo, {"--png", comDocumento, documento}), 0) << processo.readAllStandardError().toStdString();
    const QImage com(comDocumento);
    EXPECT_GT(Contar(com, com.rect()).Vermelho, 3000);

    // Um documento sem nada que o leitor conheça: dito, saída 1, e o mapa como estava.
    const QString estranho = Escrever(pasta, "estranho.xml", "<CAMADA><Desconhecido/></CAMADA>");
    const QString comEstranho = pasta.filePath("estranho.png");
    EXPECT_EQ(Rodar(processo, {"--png", comEstranho, estranho}), 1);
    EXPECT_TRUE(QString::fromUtf8(processo.readAllStandardError()).contains("nenhum objeto reconhecido em " + estranho));
    EXPECT_EQ(QImage(comEstranho), mapa);

    // Um documento que não existe: a mensagem do tratador, saída 1, e o mapa como estava.
    const QString semDocumento = pasta.filePath("sem.png");
    EXPECT_EQ(Rodar(processo, {"--png", semDocumento, pasta.filePath("nao-existe.xml")}), 1);
    EXPECT_TRUE(QString::fromUtf8(processo.readAllStandardError())
                    .contains("O arquivo especificado não existe ou não está disponível!"));
    EXPECT_EQ(QImage(semDocumento), mapa);
}

TEST(TavruMapa, TelaQueNaoAbreCaiNoPngComUmAviso)
{
    QTemporaryDir pasta;
    ASSERT_TRUE(pasta.isValid());
    QProcessEnvironment ambiente = AmbienteSemTela();
    ambiente.insert("TMPDIR", pasta.path());
    ambiente.insert("DISPLAY", ":4711"); // nenhum servidor X atende aqui
    QProcess processo;
    processo.setProcessEnvironment(ambiente);
    ASSERT_EQ(Rodar(processo, {}), 0) << processo.readAllStandardError().toStdString();
    EXPECT_EQ(QString::fromLocal8Bit(processo.readAllStandardOutput()).trimmed(), pasta.filePath("tavru-mapa.png"));
    EXPECT_TRUE(QString::fromUtf8(processo.readAllStandardError()).contains("Não foi possível abrir a tela \":4711\""));
    EXPECT_FALSE(QImage(pasta.filePath("tavru-mapa.png")).isNull());
}

// "./tavru demo" compila (só o aplicativo, numa compilação que já existe) e roda na pasta de quem
// chama: os caminhos relativos dos documentos e do PNG valem a partir dela. Só quando esta é a
// compilação que o script usa (build/ na raiz), para não compilar outra.
TEST(ScriptTavru, DemoResolveOsCaminhosNaPastaDeQuemChama)
{
    if (!TAVRU_COMPILACAO_DO_SCRIPT)
        GTEST_SKIP() << "esta compilação não é a build/ que o script usa";
    QTemporaryDir pasta;
    ASSERT_TRUE(pasta.isValid());
    Escrever(pasta, "quadrado.xml", Quadrado);
    QProcess processo;
    processo.setProcessEnvironment(AmbienteSemTela());
    processo.setWorkingDirectory(pasta.path());
    processo.start(QStringLiteral("bash"), {QStringLiteral(TAVRU_FONTE "/tavru"), "demo", "--png", "saida.png", "quadrado.xml"});
    ASSERT_TRUE(processo.waitForFinished(300000));
    EXPECT_EQ(processo.exitCode(), 0) << processo.readAllStandardError().toStdString();
    const QImage saida(pasta.filePath("saida.png"));
    ASSERT_FALSE(saida.isNull());
    EXPECT_GT(Contar(saida, saida.rect()).Vermelho, 3000);
}

TEST(TavruMapa, JanelaNumXDeVerdadeMostraOMapa)
{
    TProgramaNaTela t;
    if (const QString motivo = t.Iniciar(Aplicativo, {}); !motivo.isEmpty())
        GTEST_SKIP() << motivo.toStdString();
    const QString &aviso = t.Aviso;
    EXPECT_EQ(aviso, QStringLiteral("Mapa na tela")) << t.Programa.readAllStandardError().toStdString();

    // Sem gerenciador de janelas, a janela (1100 x 760) fica no canto; o mapa ocupa o centro dela
    // (menu e barra em cima, a doca à direita). A tela é fotografada até o mapa aparecer (a
    // pintura chega ao servidor logo depois do aviso).
    QTemporaryDir pasta;
    ASSERT_TRUE(pasta.isValid());
    const QString foto = pasta.filePath("tela.xwd");
    const QRect regiaoDoMapa(100, 150, 600, 450);
    TContagem c;
    for (int tentativa = 0; tentativa < 20 && aviso == QStringLiteral("Mapa na tela"); ++tentativa) {
        const QImage imagem = FotografarTela(t.Xwd, t.Tela, foto);
        ASSERT_FALSE(imagem.isNull());
        ASSERT_EQ(imagem.size(), QSize(1280, 900));
        c = Contar(imagem, regiaoDoMapa);
        if (c.Distintas >= 6 && c.Mar > 1000 && c.Continente > 1000)
            break;
        QThread::msleep(250);
    }
    EXPECT_GE(c.Distintas, 6);
    EXPECT_GT(c.Mar, 1000);
    EXPECT_GT(c.Continente, 1000);
}

// O pacote instalado como um usuário novo o usa: instalado numa pasta qualquer, o aplicativo e um
// hospedeiro compilado com find_package(TavruGis) rodam sem LD_LIBRARY_PATH, e o programa do
// README é exatamente o que se compila aqui (tirado do README.md), com os rótulos visíveis.

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

/// Roda o programa até o fim (5 minutos no máximo); devolve o código de saída, ou -1, e anota a
/// saída de erros em `erros`.
int Rodar(const QString &programa, const QStringList &argumentos, QString &erros,
          const QProcessEnvironment &ambiente = QProcessEnvironment::systemEnvironment())
{
    QProcess processo;
    processo.setProcessEnvironment(ambiente);
    processo.start(programa, argumentos);
    const bool terminou = processo.waitForFinished(300000);
    erros = QString::fromLocal8Bit(processo.readAllStandardOutput() + processo.readAllStandardError());
    return terminou && processo.exitStatus() == QProcess::NormalExit ? processo.exitCode() : -1;
}

/// O ambiente limpo de `env -i PATH=/usr/bin:/bin QT_QPA_PLATFORM=offscreen`.
QProcessEnvironment AmbienteLimpo()
{
    QProcessEnvironment ambiente;
    ambiente.insert("PATH", "/usr/bin:/bin");
    ambiente.insert("QT_QPA_PLATFORM", "offscreen");
    return ambiente;
}

/// O bloco de código que segue o marcador "<!-- programa: NOME -->" no README, ou vazio.
QString BlocoDoReadme(const QString &readme, const QString &nome)
{
    const QRegularExpression bloco(QStringLiteral("<!-- programa: %1 -->\\s*```\\w*\\n(.*?)```")
                                       .arg(QRegularExpression::escape(nome)),
                                   QRegularExpression::DotMatchesEverythingOption);
    return bloco.match(readme).captured(1);
}

/// Os pixels quase pretos com um pixel branco (o fundo ou o halo) a até 3 pixels na mesma linha:
/// o texto dos rótulos, e as pequenas cruzes das cidades (menos de mil pixels nas 46).
int PixelsDeRotulo(const QImage &imagem)
{
    int total = 0;
    auto escuro = [](QRgb p) { return qRed(p) < 60 && qGreen(p) < 60 && qBlue(p) < 60; };
    for (int y = 0; y < imagem.height(); ++y)
        for (int x = 3; x < imagem.width() - 3; ++x) {
            if (!escuro(imagem.pixel(x, y)))
                continue;
            for (int d = -3; d <= 3; ++d)
                if ((imagem.pixel(x + d, y) & 0xFFFFFF) == 0xFFFFFF) {
                    ++total;
                    break;
                }
        }
    return total;
}

} // namespace

TEST(PacoteInstalado, AplicativoEProgramaDoReadmeRodamNumAmbienteLimpo)
{
    QTemporaryDir pasta;
    ASSERT_TRUE(pasta.isValid());
    const QString prefixo = pasta.filePath("prefixo");
    QString saida;
    ASSERT_EQ(Rodar(TAVRU_CMAKE, {"--install", TAVRU_BINARIOS, "--prefix", prefixo}, saida), 0) << saida.toStdString();
    for (const char *cabecalho : {"control/GIS.h", "core/TGISCamada.h", "xml/ReconheceArquivoXML.h"})
        EXPECT_TRUE(QFile::exists(prefixo + "/include/tavru/" + cabecalho)) << cabecalho;
    EXPECT_FALSE(QFile::exists(prefixo + "/include/control")) << "nada genérico no caminho de inclusão";

    // O aplicativo instalado, sem tela: desenha o mapa embutido.
    const QString mapa = pasta.filePath("mapa.png");
    ASSERT_EQ(Rodar(prefixo + "/bin/tavru-mapa", {"--png", mapa}, saida, AmbienteLimpo()), 0) << saida.toStdString();
    EXPECT_EQ(QImage(mapa).size(), QSize(1000, 760));
    // Os formatos que vêm de bibliotecas e plug-ins instalados: o desenho DGN pelo plug-in achado
    // na pasta do pacote e, com o GDAL, o GeoJSON e o GeoTIFF; uma leitura que falha dá saída 1.
    QStringList documentos = {"--png", mapa, TAVRU_FONTE "/data/dgn/br_utm23s.dgn"};
#ifdef TAVRU_COM_GDAL
    documentos << TAVRU_FONTE "/data/gdal/amostra.geojson" << TAVRU_FONTE "/data/gdal/utm23s.tif";
#endif
    EXPECT_EQ(Rodar(prefixo + "/bin/tavru-mapa", documentos, saida, AmbienteLimpo()), 0) << saida.toStdString();
    // O plug-in do Designer, na pasta de plug-ins do Qt sob o prefixo, acha as bibliotecas da casa
    // sem LD_LIBRARY_PATH.
    const QString designer = prefixo + "/" TAVRU_PLUGINS_DO_QT "/designer/libtavru_designer.so";
    ASSERT_TRUE(QFile::exists(designer)) << designer.toStdString();
    ASSERT_EQ(Rodar("/usr/bin/ldd", {designer}, saida, AmbienteLimpo()), 0) << saida.toStdString();
    EXPECT_FALSE(saida.contains("not found")) << saida.toStdString();
    EXPECT_TRUE(saida.contains("libtavru_gis.so.0 => " + prefixo)) << saida.toStdString();

    // O programa do README, como está escrito lá.
    QFile arquivo(TAVRU_FONTE "/README.md");
    ASSERT_TRUE(arquivo.open(QIODevice::ReadOnly));
    const QString readme = QString::fromUtf8(arquivo.readAll());
    const QString fonte = pasta.filePath("meu_app");
    ASSERT_TRUE(QDir().mkpath(fonte));
    for (const QString nome : {"CMakeLists.txt", "meu_app.cpp"}) {
        const QString bloco = BlocoDoReadme(readme, nome);
        ASSERT_FALSE(bloco.isEmpty()) << "o README não tem o bloco " << nome.toStdString();
        QFile f(fonte + "/" + nome);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bloco.toUtf8());
    }
    const QString compilacao = pasta.filePath("b");
    ASSERT_EQ(Rodar(TAVRU_CMAKE,
                    {"-S", fonte, "-B", compilacao, "-G", TAVRU_GERADOR, "-DCMAKE_PREFIX_PATH=" + prefixo,
                     "-DCMAKE_BUILD_TYPE=Release"},
                    saida),
              0)
        << saida.toStdString();
    ASSERT_EQ(Rodar(TAVRU_CMAKE, {"--build", compilacao}, saida), 0) << saida.toStdString();

    const QString figura = pasta.filePath("programa.png");
    ASSERT_EQ(Rodar(compilacao + "/meu_app", {TAVRU_FONTE "/data/mapa/cidades.xml", figura}, saida, AmbienteLimpo()), 0)
        << saida.toStdString();
    const QImage janela(figura);
    ASSERT_EQ(janela.size(), QSize(900, 700));
    // As 46 cidades rotuladas: bem mais pixels de texto do que um rótulo só teria.
    EXPECT_GT(PixelsDeRotulo(janela), 3000);
    // Um documento que não se lê: a mensagem do tratador e a saída 1.
    EXPECT_EQ(Rodar(compilacao + "/meu_app", {pasta.filePath("nao-existe.xml"), figura}, saida, AmbienteLimpo()), 1);
    EXPECT_TRUE(saida.contains("O arquivo especificado não existe ou não está disponível!")) << saida.toStdString();
}

// As figuras georreferenciadas: cada formato gravado e lido de volta, o ".geo" e o arquivo de
// mundo, os jeitos mantidos de `Gravar`, o formato desconhecido com a lista intacta e os seis
// registros.

#include <tavru/companions/geodesy/TFileFormatList.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/formats/ReconheceArquivosRaster.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <algorithm>

using namespace tavru;

namespace {

class Raster : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto roteirizados = std::make_unique<TDialogosRoteirizados>();
        Roteiro = roteirizados.get();
        FAnterior = TrocarDialogos(std::move(roteirizados));
        ASSERT_TRUE(Pasta.isValid());
    }
    void TearDown() override { TrocarDialogos(std::move(FAnterior)); }

    QString Caminho(const QString &nome) const { return Pasta.filePath(nome); }
    QString Arquivo(const QString &nome, const QByteArray &texto) const
    {
        QFile f(Caminho(nome));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(texto);
        return Caminho(nome);
    }
    static QByteArray Conteudo(const QString &caminho)
    {
        QFile f(caminho);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }

    /// Uma imagem na lista, com uma figura de blocos de cores e a área dada.
    static TGISImagem *NovaImagem(TGISObjetoList &lista, QSize tamanho, const TGISRet &area)
    {
        auto *imagem = new TGISImagem;
        imagem->AtribuirImagem(Blocos(tamanho));
        imagem->AtribuirAreaImagem(area);
        lista.Add(imagem);
        return imagem;
    }
    /// Quatro quadrantes de cores distintas (vermelho, verde, azul, amarelo escuro).
    static QImage Blocos(QSize tamanho)
    {
        QImage f(tamanho, QImage::Format_RGB32);
        for (int y = 0; y < f.height(); ++y)
            for (int x = 0; x < f.width(); ++x) {
                const bool direita = x >= f.width() / 2, baixo = y >= f.height() / 2;
                f.setPixel(x, y, !direita && !baixo ? qRgb(200, 30, 30)
                                 : direita && !baixo ? qRgb(20, 180, 40)
                                 : !direita          ? qRgb(30, 40, 210)
                                                     : qRgb(120, 110, 10));
            }
        return f;
    }

    QTemporaryDir Pasta;
    TDialogosRoteirizados *Roteiro = nullptr;

private:
    std::unique_ptr<TProvedorDeDialogos> FAnterior;
};

/// Um segundo de arco por pixel, o norte para cima: x = longitude, y = -latitude.
class TProjecaoDeTela : public TGISProjecao
{
public:
    std::unique_ptr<TGISProjecao> Criar() const override { return std::make_unique<TProjecaoDeTela>(); }
    void FitToRect(const TGISRet &) override {}
    TPoint MundoParaTela(const TGISPosicao &p) const override { return TPoint(p.Longitude, -p.Latitude); }
    TGISPosicao TelaParaMundo(const TPoint &p) const override { return GISPosicao(-p.Y, p.X); }
    /// A área do mundo que cai em `r` da tela.
    static TGISRet Area(const TRect &r) { return GISRet(-r.Bottom, r.Left, -r.Top, r.Right); }
};

QString Dados(const char *nome)
{
    return QStringLiteral(TAVRU_DADOS "/raster/") + QLatin1String(nome);
}

} // namespace

TEST_F(Raster, SeisTiposRegistradosEmOrdemComOsFiltrosExatos)
{
    std::vector<TRegistro> nossos;
    for (const TRegistro &r : TGISObjetoList::ObterRegistro())
        if (r.Classe == &TTratadorArquivosRasters::Classe)
            nossos.push_back(r);
    ASSERT_EQ(nossos.size(), 6u);
    const char *tipos[] = {"jpeg", "png", "gif", "Bitmap", "windows meta file", "e meta file"};
    for (size_t i = 0; i < 6; ++i)
        EXPECT_EQ(nossos[i].Tipo, QString::fromUtf8(tipos[i]));
    EXPECT_EQ(nossos[1].FiltroLeitura, "Arquivo do PNG (*.png)|*.jpg");
    EXPECT_EQ(nossos[1].FiltroEscrita, "Arquivo do png (*.png)|*.png");
    EXPECT_EQ(nossos[5].FiltroLeitura, "Arquivo MetaFile (*.emf)|*.emf");
    // O "png" ainda se acha pela extensão, pela descrição do filtro.
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao(".png", true), "png");
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao("gif", false), "gif");

    TGISObjetoList lista;
    TTratadorArquivosRasters tratador(lista);
    QFile nada(Arquivo("nada.txt", "não é figura"));
    ASSERT_TRUE(nada.open(QIODevice::ReadOnly));
    EXPECT_TRUE(tratador.Reconhece(nada));
}

TEST_F(Raster, CadaFormatoGravadoVoltaComOsPixelsEAArea)
{
    const TGISRet area = GISRet(-125297, -270211, 22148, -118969);
    // Tolerância por canal: zero nos formatos sem perda, a do JPEG nos blocos lisos.
    const std::pair<const char *, int> formatos[] = {{"png", 0}, {"bmp", 0}, {"gif", 0}, {"wmf", 0}, {"emf", 0}, {"jpg", 12}, {"jpeg", 12}};
    for (const auto &[extensao, tolerancia] : formatos) {
        SCOPED_TRACE(extensao);
        TGISObjetoList lista;
        NovaImagem(lista, QSize(48, 32), area);
        const QString nome = Caminho(QStringLiteral("figura.") + extensao);
        TTratadorArquivosRasters(lista).Gravar(nome);
        EXPECT_EQ(Conteudo(Caminho("figura.geo")), "-125297 -270211 22148 -118969\r\n");

        TGISObjetoList lida;
        TTratadorArquivosRasters(lida).Ler(nome);
        ASSERT_EQ(lida.Count(), 1) << Roteiro->Mensagens.join(';').toStdString();
        const auto &imagem = dynamic_cast<const TGISImagem &>(*lida.ObterGISObjeto(0));
        EXPECT_EQ(imagem.AreaImagem(), area);
        EXPECT_EQ(imagem.NomeArquivoImagem(), nome);
        ASSERT_EQ(imagem.Imagem().size(), QSize(48, 32));
        const QImage esperada = Blocos(QSize(48, 32));
        // O meio de cada quadrante e os cantos.
        for (const QPoint p : {QPoint(0, 0), QPoint(12, 8), QPoint(36, 8), QPoint(12, 24), QPoint(36, 24), QPoint(47, 31)}) {
            const QRgb a = imagem.Imagem().pixel(p), b = esperada.pixel(p);
            EXPECT_LE(std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))}),
                      tolerancia) << p.x() << "," << p.y();
        }
        QFile::remove(Caminho("figura.geo"));
    }
    EXPECT_TRUE(Roteiro->Mensagens.isEmpty());
}

TEST_F(Raster, GravarSemExtensaoUsaJpgEAUltimaImagemGanha)
{
    TGISObjetoList lista;
    NovaImagem(lista, QSize(10, 6), GISRet(1, 2, 3, 4));
    NovaImagem(lista, QSize(7, 9), GISRet(-5, -6, 70, 80));
    TTratadorArquivosRasters tratador(lista);
    tratador.Gravar(Caminho("mapa"));
    EXPECT_EQ(QDir(Pasta.path()).entryList(QDir::Files, QDir::Name), (QStringList{"mapa.geo", "mapa.jpg"}));
    EXPECT_EQ(QImage(Caminho("mapa.jpg")).size(), QSize(7, 9));
    EXPECT_EQ(Conteudo(Caminho("mapa.geo")), "-5 -6 70 80\r\n");


    // Extensão desconhecida chega a quem chama; nada é escrito.
    EXPECT_THROW(tratador.Gravar(Caminho("mapa.xyz")), EInOutError);
    // Sem imagens, nada é gravado.
    TGISObjetoList vazia;
    TTratadorArquivosRasters(vazia).Gravar(Caminho("vazio.png"));
    EXPECT_EQ(QDir(Pasta.path()).entryList(QDir::Files).size(), 2);
}

TEST_F(Raster, FormatoDesconhecidoAvisaEDeixaAListaComoEstava)
{
    TGISObjetoList lista;
    NovaImagem(lista, QSize(4, 4), GISRet(0, 0, 10, 10));
    lista.CalcularLimites();
    TTratadorArquivosRasters tratador(lista);
    tratador.Ler(Arquivo("lixo.png", QByteArray("\x89PNG\r\n\x1a\n", 8) + QByteArray(40, 'x')));
    tratador.Ler(Caminho("nao_existe.jpg"));
    // Figura boa com ".geo" ruim: também não entra.
    QImage(4, 4, QImage::Format_RGB32).save(Caminho("boa.bmp"));
    Arquivo("boa.geo", "1 2 tres 4\n");
    tratador.Ler(Caminho("boa.bmp"));
    EXPECT_EQ(lista.Count(), 1);
    EXPECT_EQ(Roteiro->Mensagens, QStringList(3, QStringLiteral("Arquivo em formato desconhecido!")));
}

TEST_F(Raster, MetarquivoConferidoAntesDoLibwmf)
{
    TGISObjetoList lista;
    NovaImagem(lista, QSize(6, 4), GISRet(0, 0, 10, 10));
    TTratadorArquivosRasters(lista).Gravar(Caminho("bom.wmf"));
    const QByteArray bom = Conteudo(Caminho("bom.wmf"));
    ASSERT_GT(bom.size(), 22 + 18 + 10 + 10 + 28 + 40);
    // A mensagem da leitura dos bytes dados como `nome`; vazia se foi lida.
    const auto erro = [&](const QByteArray &bytes, const char *nome = "ruim.wmf") {
        TGISImagem imagem;
        try {
            imagem.LerArquivo(Arquivo(nome, bytes));
        } catch (const EInOutError &e) {
            return e.Message().toStdString();
        }
        return std::string();
    };
    const auto contem = [](const std::string &texto, const char *trecho) {
        EXPECT_NE(texto.find(trecho), std::string::npos) << texto;
    };
    EXPECT_EQ(erro(bom), "");
    contem(erro(bom.left(bom.size() - 6)), "falta o registro do fim");
    // O registro da figura diz ser maior que o arquivo.
    QByteArray longo = bom;
    const int registro = 22 + 18 + 10 + 10;
    longo[registro + 3] = char(0x7F);
    contem(erro(longo), "registro de tamanho");
    // O bitmap diz ser mais alto do que o registro traz.
    QByteArray alto = bom;
    alto[registro + 28 + 8] = char(100);
    contem(erro(alto), "bitmap maior que o registro");
    // Um registro de tamanho zero não faz o laço parar no lugar.
    QByteArray zero = bom;
    zero[registro] = zero[registro + 1] = zero[registro + 2] = zero[registro + 3] = 0;
    contem(erro(zero), "registro de tamanho 0");

    // EMF: o mesmo cuidado, com os deslocamentos do bitmap dentro do registro.
    TTratadorArquivosRasters(lista).Gravar(Caminho("bom.emf"));
    const QByteArray emf = Conteudo(Caminho("bom.emf"));
    EXPECT_EQ(erro(emf, "ruim.emf"), "");
    contem(erro(emf.left(emf.size() - 20), "ruim.emf"), "falta o registro do fim");
    QByteArray fora = emf;
    fora[88 + 56 + 2] = char(0x10); // offBitsSrc muito além do registro
    contem(erro(fora, "ruim.emf"), "bitmap fora do registro");
    QByteArray impar = emf;
    impar[88 + 4] = char(impar[88 + 4] + 2); // tamanho que não é múltiplo de 4
    contem(erro(impar, "ruim.emf"), "registro de tamanho");
}

TEST_F(Raster, GeoEArquivoDeMundoPoemAFiguraNoLugar)
{
    QImage figura(40, 20, QImage::Format_RGB32);
    figura.fill(Qt::red);
    ASSERT_TRUE(figura.save(Caminho("a.png")));

    // Sem nada ao lado: o retângulo com que a imagem começa.
    TGISImagem imagem;
    imagem.LerArquivo(Caminho("a.png"));
    EXPECT_EQ(imagem.AreaImagem(), GISRet(-1000, -1000, 1000, 1000));

    // Arquivo de mundo: pixel de 0.5 grau de longitude por 0.25 de latitude, o canto de cima à
    // esquerda em (10 N, 50 O); o centro do primeiro pixel fica meio pixel para dentro.
    Arquivo("a.pgw", "0.5\n0\n0\n-0.25\n-49.75\n9.875\n");
    imagem.LerArquivo(Caminho("a.png"));
    EXPECT_EQ(imagem.AreaImagem(), GISRet(5 * 3600, -50 * 3600, 10 * 3600, -30 * 3600));

    // ".wld" serve a qualquer figura; rotação faz o arquivo ser deixado de lado.
    ASSERT_TRUE(figura.save(Caminho("b.bmp")));
    Arquivo("b.wld", "0.5\n0.01\n0\n-0.25\n-49.75\n9.875\n");
    TGISImagem girada;
    girada.LerArquivo(Caminho("b.bmp"));
    EXPECT_EQ(girada.AreaImagem(), GISRet(-1000, -1000, 1000, 1000));
    EXPECT_FALSE(girada.LerArquivoMundo(Caminho("b.bmp")));

    // O ".geo" ganha do arquivo de mundo, e sai em ordem.
    Arquivo("a.geo", "10 20 5 7 e o resto da linha\n");
    imagem.LerArquivo(Caminho("a.png"));
    EXPECT_EQ(imagem.AreaImagem(), GISRet(5, 7, 10, 20));
    // O leitor do tratador devolve os números como vieram, e não mexe sem arquivo.
    EXPECT_EQ(TTratadorArquivosRasters::LerGeoreferencia(Caminho("a.geo")), GISRet(10, 20, 5, 7));
    EXPECT_EQ(TTratadorArquivosRasters::LerGeoreferencia(Caminho("z.geo"), GISRet(1, 2, 3, 4)), GISRet(1, 2, 3, 4));
}

TEST_F(Raster, CopiasDoBlueMarbleSemGeoAbremSobreOBrasil)
{
    TGISRet geo;
    ASSERT_TRUE(TGISImagem::LerGeo(Dados("bluemarble_brazil.geo"), geo));
    for (const char *extensao : {"png", "jpg", "gif", "bmp"}) {
        SCOPED_TRACE(extensao);
        const QString figura = Caminho(QStringLiteral("copia.") + extensao);
        ASSERT_TRUE(QFile::copy(Dados("bluemarble_brazil.") + extensao, figura));
        const QString mundo = TGISImagem::NomesArquivoMundo(figura).first();
        ASSERT_TRUE(QFile::copy(Dados("bluemarble_brazil.") + QFileInfo(mundo).suffix(), mundo));
        TGISObjetoList lista;
        TTratadorArquivosRasters(lista).Ler(figura);
        ASSERT_EQ(lista.Count(), 1);
        const TGISRet r = lista.ObterGISObjeto(0)->Area();
        EXPECT_NEAR(r.Pos1.Latitude, geo.Pos1.Latitude, 1);
        EXPECT_NEAR(r.Pos1.Longitude, geo.Pos1.Longitude, 1);
        EXPECT_NEAR(r.Pos2.Latitude, geo.Pos2.Latitude, 1);
        EXPECT_NEAR(r.Pos2.Longitude, geo.Pos2.Longitude, 1);
    }
}

TEST_F(Raster, FiltroDasImagensVemDaListaDeFormatos)
{
    const QString filtro = TGISImagem::FiltroDeImagens();
    EXPECT_TRUE(filtro.startsWith("Formatos Compatíveis (")) << filtro.toStdString();
    EXPECT_FALSE(filtro.contains("All Images", Qt::CaseInsensitive));
    for (const char *padrao : {"*.jpg", "*.png", "*.gif", "*.bmp", "*.wmf", "*.emf"})
        EXPECT_TRUE(filtro.section('|', 1, 1).contains(padrao)) << padrao;
    TFormatoGrafico gif;
    ASSERT_TRUE(TFileFormatList::GraphicFromExtension(".GIF", gif));
    EXPECT_TRUE(gif.Gravar);
    EXPECT_FALSE(TFileFormatList::GraphicFromExtension("tif", gif));
}

TEST(RasterDesenho, SoAParteVisivelIgualAoDesenhoEsticadoETrocaComAFigura)
{
    // Uma figura de 8 bits de 300 x 200 com listras de 10 pixels, deitada num retângulo de tela
    // maior que a tela e que começa fora dela.
    QImage listras(300, 200, QImage::Format_RGB32);
    for (int y = 0; y < 200; ++y)
        for (int x = 0; x < 300; ++x)
            listras.setPixel(x, y, (x / 10 + y / 10) % 2 ? qRgb(250, 10, 10) : qRgb(10, 10, 250));
    TGISImagem imagem;
    imagem.AtribuirImagem(listras.convertToFormat(QImage::Format_Indexed8));
    const TRect r(-250, -70, 650, 530); // 3 x a figura
    TProjecaoDeTela projecao;
    imagem.AtribuirAreaImagem(TProjecaoDeTela::Area(r));

    QImage tela(400, 300, QImage::Format_ARGB32_Premultiplied), referencia = tela;
    referencia.fill(Qt::white);
    {
        QPainter p(&referencia);
        p.drawImage(QRect(r.Left, r.Top, r.Right - r.Left, r.Bottom - r.Top), imagem.Imagem());
    }
    TCanvas canvas(&tela);
    for (int quadro = 0; quadro < 2; ++quadro) { // o segundo sai do cache
        tela.fill(Qt::white);
        imagem.Desenhar(canvas, projecao, false);
        canvas.AtribuirImagem(&tela); // termina o desenho
        int diferentes = 0;
        for (int y = 0; y < 300; y += 7)
            for (int x = 0; x < 400; x += 7)
                diferentes += tela.pixel(x, y) != referencia.pixel(x, y);
        // Numa escala inteira o vizinho mais próximo é o mesmo pixel; folga para o arredondamento.
        EXPECT_LE(diferentes, 3) << "quadro " << quadro;
        EXPECT_EQ(tela.pixel(1, 1), referencia.pixel(1, 1));
        EXPECT_EQ(tela.pixel(398, 298), referencia.pixel(398, 298));
    }
    // Outra figura na mesma visão não pode sair do cache.
    QImage verde(300, 200, QImage::Format_RGB32);
    verde.fill(qRgb(0, 200, 0));
    imagem.AtribuirImagem(verde.convertToFormat(QImage::Format_Indexed8));
    tela.fill(Qt::white);
    imagem.Desenhar(canvas, projecao, false);
    canvas.AtribuirImagem(&tela);
    EXPECT_EQ(QColor(tela.pixel(200, 150)), QColor(0, 200, 0));
}

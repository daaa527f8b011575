// O documento do mapa inteiro: ida e volta de um mapa com camadas de dentro e referidas (com
// opções de leitura e caminhos relativos), e os erros que deixam o mapa como estava.

#include <tavru/control/TDocumentoDoMapa.h>
#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TStringList.h>
#include <tavru/xml/ReconheceArquivoXML.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <gtest/gtest.h>

using namespace tavru;

namespace {

// Um formato de texto mínimo, uma linha "latitude longitude" por ponto; a opção "Escala" (inteira)
// multiplica a latitude e "Prefixo" dá o nome dos pontos; uma linha "ERRO" falha a leitura.
class TTratadorDeLinhas : public TGISTratadorDeArquivo
{
public:
    using TGISTratadorDeArquivo::TGISTratadorDeArquivo;
    static const TClasseTratador Classe;
    void Ler(const QString &nome) override
    {
        QFile f(nome);
        if (!f.open(QIODevice::ReadOnly))
            throw EInOutError(QStringLiteral("não abre"));
        const int escala = Opcoes().value(QStringLiteral("Escala"), 1).toInt();
        const QString prefixo = Opcoes().value(QStringLiteral("Prefixo")).toString();
        while (!f.atEnd()) {
            const QList<QByteArray> partes = f.readLine().trimmed().split(' ');
            if (partes.value(0) == "ERRO")
                throw EConvertError(QStringLiteral("linha ruim"));
            auto *p = new TGISPonto;
            p->AtribuirPosicao(GISPosicao(partes.value(0).toInt() * escala, partes.value(1).toInt()));
            p->Informacoes().AtribuirCampo(QStringLiteral("Nome"), prefixo + QString::number(Lista().Count()));
            Lista().Add(p);
        }
    }
    void Gravar(const QString &) override {}
    bool Reconhece(QIODevice &) override { return false; }
};
const TClasseTratador TTratadorDeLinhas::Classe = TClasseTratador::De<TTratadorDeLinhas>("TTratadorDeLinhas");

class DocumentoDoMapa : public ::testing::Test
{
protected:
    void SetUp() override
    {
        TGISObjetoList::RegistrarTratadorDeArquivo(QStringLiteral("LINHAS"), TTratadorDeLinhas::Classe,
                                                   QStringLiteral("*.lin"), QString());
        // Os objetos de dentro são escritos pelo tratador XML com os ajustes dele: os do aplicativo.
        FCabecalho = CABECALHO;
        CABECALHO = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
        ESCAPAR_TEXTOS = true;
        ASSERT_TRUE(QDir(FPasta.path()).mkpath(QStringLiteral("mapa/dados")));
    }
    void TearDown() override
    {
        TGISObjetoList::RemoverRegistroTratadorDeArquivo(TTratadorDeLinhas::Classe);
        ESCAPAR_TEXTOS = false;
        CABECALHO = FCabecalho;
    }

    QString Caminho(const QString &nome) const { return FPasta.filePath(nome); }
    static void Escrever(const QString &caminho, const QByteArray &bytes)
    {
        QFile f(caminho);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    static QByteArray Bytes(const QString &caminho)
    {
        QFile f(caminho);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }

    // Um mapa 400 x 300 com uma camada de dentro (ponto e área, com nomes que pedem escape), uma
    // referida de XML e uma referida com opções, e opções do controle diferentes dos padrões.
    void MontarMapa(TGis &gis)
    {
        gis.resize(400, 300);
        auto *dentro = new TGISCamada(QStringLiteral("Inclusões"));
        dentro->AtribuirTipo(gtcEditavel);
        dentro->AtribuirZoomMinimo(0.25);
        dentro->AtribuirZoomMaximo(900.5);
        dentro->Caneta().Color = 0x0000FF;
        dentro->Caneta().Width = 3;
        dentro->Caneta().Style = psDash;
        dentro->Pincel().Color = 0x00FF00;
        dentro->Pincel().Style = bsCross;
        auto *ponto = new TGISPonto;
        ponto->AtribuirPosicao(GISPosicao(-84600, -166500));
        // Os tamanhos na tela com que o documento XML lê um ponto, para que a segunda gravação seja igual.
        ponto->AtribuirTamanhoMaximo(TPoint{8, 8});
        ponto->AtribuirTamanhoMinimo(TPoint{2, 2});
        ponto->Informacoes().AtribuirCampo(QStringLiteral("Nome"), QStringLiteral("Porto & Velho <RO> \"Łódź\""));
        dentro->Objetos().Add(ponto);
        auto *area = new TGISArea;
        area->Pontos().Add(new TGISPosicaoList);
        area->InserirPonto(0, 0, GISPosicao(-3600, -7200));
        area->InserirPonto(0, 1, GISPosicao(-3600, -10800));
        area->InserirPonto(0, 2, GISPosicao(-7200, -10800));
        area->CalcularLimites();
        dentro->Objetos().Add(area);
        dentro->AtribuirCor(0x123456);
        dentro->Visibilidade(true, true);
        gis.Camadas().Add(dentro);

        // Camada XML gravada num arquivo próprio ao lado do documento.
        {
            TGISObjetoList gravada;
            auto *c = new TGISPonto;
            c->AtribuirPosicao(GISPosicao(-55800, -169200));
            c->Informacoes().AtribuirCampo(QStringLiteral("Nome"), QStringLiteral("Brasília"));
            gravada.Add(c);
            ASSERT_TRUE(gravada.Gravar(Caminho("mapa/dados/cidades.xml"), QStringLiteral("XML")));
        }
        auto *cidades = new TGISCamada(QStringLiteral("Cidades"));
        ASSERT_TRUE(cidades->Objetos().Ler(Caminho("mapa/dados/cidades.xml"), QStringLiteral("XML")));
        cidades->AtribuirVisivel(false);
        cidades->Visibilidade(false, false);
        gis.Camadas().Add(cidades);

        Escrever(Caminho("mapa/dados/pontos.lin"), "10 20\n30 40\n");
        auto *linhas = new TGISCamada(QStringLiteral("Linhas"));
        linhas->AtribuirTipo(gtcPanoDeFundo);
        QVariantMap opcoes{{QStringLiteral("Escala"), 7}, {QStringLiteral("Prefixo"), QStringLiteral("P-")}};
        ASSERT_TRUE(linhas->Objetos().Ler(Caminho("mapa/dados/pontos.lin"), QStringLiteral("LINHAS"), opcoes));
        linhas->Visibilidade(true, false);
        gis.Camadas().Add(linhas);

        gis.AtribuirColor(0x203040);
        gis.AtribuirCorDoHalo(0xFFFFFF);
        gis.AtribuirRotulosSemSobreposicao(true);
        gis.AtribuirSetaNoCentroDaArea(true);
        gis.AtribuirMostrarEscala(true);
        gis.FonteRotulo().Name = QStringLiteral("DejaVu Serif");
        gis.FonteRotulo().SetHeight(-17);
        gis.FonteRotulo().Color = 0x0000AA;
        gis.FonteRotulo().Style = 3;
        gis.FonteRotulo().Escapement = 450;
        gis.AtribuirTextosRotulos({QStringLiteral("Nome"), QStringLiteral("Código")});
        gis.Projecao()->AtribuirCentro(GISPosicao(-50000, -170000));
        gis.AtribuirZoom(3.75);
    }

    // Resumo comparável de um mapa: camadas, opções, objetos e visão.
    static QStringList Resumo(TGis &gis)
    {
        QStringList r;
        const TFont &f = gis.FonteRotulo();
        r << QStringLiteral("controle %1 %2 %3 %4 %5 %6").arg(gis.Color()).arg(gis.CorDoHalo())
                 .arg(gis.RotulosSemSobreposicao()).arg(gis.SetaNoCentroDaArea()).arg(gis.MostrarEscala())
                 .arg(gis.TextosRotulos().join('|'));
        r << QStringLiteral("fonte %1 %2 %3 %4 %5 %6").arg(f.Name).arg(f.Height()).arg(f.Size()).arg(f.Color).arg(f.Style).arg(f.Escapement);
        r << QStringLiteral("visão %1 %2 %3").arg(gis.Projecao()->Centro().Latitude).arg(gis.Projecao()->Centro().Longitude)
                 .arg(gis.Zoom(), 0, 'g', 17);
        for (int i = 0; i < gis.Camadas().Count(); ++i) {
            const TGISCamada &c = *gis.Camadas().Items(i);
            r << QStringLiteral("camada %1 %2 %3 %4 %5 %6 caneta %7 %8 %9 pincel %10 %11")
                     .arg(c.Nome()).arg(c.Tipo()).arg(c.Visivel()).arg(c.ZoomMinimo()).arg(c.ZoomMaximo())
                     .arg(c.CorAtribuida() ? c.Cor() : -1).arg(c.Caneta().Color).arg(c.Caneta().Width)
                     .arg(c.Caneta().Style).arg(c.Pincel().Color).arg(c.Pincel().Style);
            for (int j = 0; j < c.Objetos().Count(); ++j) {
                const TGISObjeto &o = *c.Objetos().Items(j);
                // A extensão de um ponto é a do último desenho dele: conta a posição.
                const TGISRet a = o.Classe() == TGISPonto::Descritor ? TGISRet{} : o.Area();
                r << QStringLiteral("  %1 %2 @%10,%11 (%3 %4 %5 %6) cor %7 vis %8 %9")
                         .arg(o.Classe().Nome(), o.Informacoes().ObterValor(QStringLiteral("Nome")))
                         .arg(a.Pos1.Latitude).arg(a.Pos1.Longitude).arg(a.Pos2.Latitude).arg(a.Pos2.Longitude)
                         .arg(o.ObterCor()).arg(o.Visivel()).arg(o.RotuloVisivel())
                         .arg(o.Posicao().Latitude).arg(o.Posicao().Longitude);
            }
        }
        return r;
    }

    QTemporaryDir FPasta;
    QString FCabecalho;
};

} // namespace

TEST_F(DocumentoDoMapa, IdaEVoltaComCaminhosRelativosEOpcoes)
{
    TGis ida;
    MontarMapa(ida);
    ASSERT_EQ(ida.Camadas().Count(), 3);
    const QStringList esperado = Resumo(ida);
    // A escala 7 da opção chegou ao tratador: é ela que precisa voltar.
    ASSERT_TRUE(esperado.join('\n').contains(QStringLiteral("P-0 @70,20"))) << esperado.join('\n').toStdString();

    ida.SalvarMapa(Caminho("mapa/mundo.tmapa"));
    const QByteArray documento = Bytes(Caminho("mapa/mundo.tmapa"));
    EXPECT_TRUE(documento.contains("Caminho=\"dados/cidades.xml\"")) << documento.constData();
    EXPECT_TRUE(documento.contains("Caminho=\"dados/pontos.lin\""));
    EXPECT_FALSE(documento.contains(QDir(FPasta.path()).absolutePath().toUtf8())); // nenhum caminho absoluto
    // Gravar não muda a origem das camadas: a de dentro continua sem arquivo.
    EXPECT_TRUE(ida.Camadas().Items(0)->Objetos().NomeArquivo().isEmpty());

    // A pasta inteira mudou de lugar: os caminhos relativos ainda valem.
    ASSERT_TRUE(QDir().rename(Caminho("mapa"), Caminho("outro")));
    TGis volta;
    volta.resize(400, 300);
    volta.Camadas().Add(new TGISCamada(QStringLiteral("velha")));
    volta.AbrirMapa(Caminho("outro/mundo.tmapa"));
    EXPECT_EQ(Resumo(volta).join(QLatin1Char('\n')).toStdString(), esperado.join(QLatin1Char('\n')).toStdString());

    // A camada de dentro continua de dentro e as referidas apontam para o lugar novo; gravar de
    // novo dá o mesmo documento.
    EXPECT_TRUE(volta.Camadas().Items(0)->Objetos().NomeArquivo().isEmpty());
    EXPECT_EQ(QDir::cleanPath(volta.Camadas().Items(2)->Objetos().NomeArquivo()), QDir::cleanPath(Caminho("outro/dados/pontos.lin")));
    volta.SalvarMapa(Caminho("outro/de-novo.tmapa"));
    EXPECT_EQ(Bytes(Caminho("outro/de-novo.tmapa")).toStdString(), documento.toStdString());

    // Um objeto a mais numa camada referida: ela vai inteira para dentro do documento.
    auto *novo = new TGISPonto;
    novo->AtribuirPosicao(GISPosicao(1, 2));
    volta.Camadas().Items(2)->Objetos().Add(novo);
    volta.SalvarMapa(Caminho("outro/com-mais.tmapa"));
    EXPECT_FALSE(Bytes(Caminho("outro/com-mais.tmapa")).contains("pontos.lin"));
    TGis terceiro;
    terceiro.AbrirMapa(Caminho("outro/com-mais.tmapa"));
    ASSERT_EQ(terceiro.Camadas().Count(), 3);
    EXPECT_EQ(terceiro.Camadas().Items(2)->Objetos().Count(), 3);
}

TEST_F(DocumentoDoMapa, UmaReferenciaQuebradaDeixaOMapaComoEstava)
{
    TGis gis;
    MontarMapa(gis);
    gis.SalvarMapa(Caminho("mapa/mundo.tmapa"));
    const QStringList antes = Resumo(gis);
    // Abrir o documento falha com uma mensagem que tem os `trechos`, e o mapa fica como estava.
    auto falha = [&](const QStringList &trechos) -> ::testing::AssertionResult {
        try {
            gis.AbrirMapa(Caminho("mapa/mundo.tmapa"));
            return ::testing::AssertionFailure() << "não falhou";
        } catch (const EInOutError &e) {
            EXPECT_EQ(Resumo(gis), antes);
            for (const QString &t : trechos)
                if (!e.Message().contains(t))
                    return ::testing::AssertionFailure() << e.Message().toStdString();
        }
        return ::testing::AssertionSuccess();
    };

    // O arquivo de uma camada some: o erro diz qual arquivo e qual camada.
    ASSERT_TRUE(QFile::rename(Caminho("mapa/dados/cidades.xml"), Caminho("mapa/dados/x.xml")));
    EXPECT_TRUE(falha({"cidades.xml", "\"Cidades\""}));
    ASSERT_TRUE(QFile::rename(Caminho("mapa/dados/x.xml"), Caminho("mapa/dados/cidades.xml")));

    // O tratador falha no meio da leitura da última camada: as duas primeiras, já lidas, não entram.
    Escrever(Caminho("mapa/dados/pontos.lin"), "1 2\nERRO\n");
    EXPECT_TRUE(falha({"pontos.lin", "linha ruim"}));

    // Um tratador que não está mais registrado também é uma referência quebrada.
    Escrever(Caminho("mapa/dados/pontos.lin"), "1 2\n");
    TGISObjetoList::RemoverRegistroTratadorDeArquivo(TTratadorDeLinhas::Classe);
    EXPECT_TRUE(falha({}));
    TGISObjetoList::RegistrarTratadorDeArquivo(QStringLiteral("LINHAS"), TTratadorDeLinhas::Classe, QString(), QString());
    EXPECT_NO_THROW(gis.AbrirMapa(Caminho("mapa/mundo.tmapa")));
    EXPECT_EQ(gis.Camadas().Count(), 3);
}

TEST_F(DocumentoDoMapa, DocumentosInvalidosDizemPorqueENaoMudamNada)
{
    TGis gis;
    MontarMapa(gis);
    gis.SalvarMapa(Caminho("mapa/bom.tmapa"));
    const QByteArray bom = Bytes(Caminho("mapa/bom.tmapa"));
    const QStringList antes = Resumo(gis);

    struct Caso
    {
        const char *nome;
        QByteArray bytes;
        const char *trecho; // o que a mensagem diz
    };
    const Caso casos[] = {
        {"nao-xml", "isto não é XML <", ""},
        {"raiz", "<CAMADA/>", "raiz"},
        {"versao", QByteArray(bom).replace("Versao=\"1\"", "Versao=\"2\""), "versão"},
        {"tipo", QByteArray(bom).replace("Tipo=\"2\"", "Tipo=\"3\""), "Tipo"},
        {"estilo", QByteArray(bom).replace("Estilo=\"6\"", "Estilo=\"8\""), "Estilo"},
        {"zoom", QByteArray(bom).replace("Zoom=\"3.75\"", "Zoom=\"nan\""), "Zoom"},
        {"latitude", QByteArray(bom).replace("Latitude=\"-50000\"", "Latitude=\"324001\""), "Latitude"},
        {"sem-objetos", QByteArray(bom).replace("<OBJETOS>", "<OUTROS>").replace("</OBJETOS>", "</OUTROS>"), "OBJETOS"},
        {"sem-controle", QByteArray(bom).replace("<CONTROLE", "<CONTROL").replace("</CONTROLE>", "</CONTROL>"), "CONTROLE"},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nome);
        ASSERT_NE(c.bytes, bom);
        const QString nome = Caminho(QStringLiteral("mapa/%1.tmapa").arg(QLatin1String(c.nome)));
        Escrever(nome, c.bytes);
        try {
            gis.AbrirMapa(nome);
            ADD_FAILURE() << "devia falhar";
        } catch (const EConvertError &e) {
            EXPECT_TRUE(e.Message().contains(QString::fromUtf8(c.trecho))) << e.Message().toStdString();
            EXPECT_TRUE(e.Message().contains(nome)) << e.Message().toStdString();
        }
        EXPECT_EQ(Resumo(gis), antes);
    }

    // Nada com esse nome, e uma pasta no lugar do documento.
    EXPECT_THROW(gis.AbrirMapa(Caminho("mapa/nada.tmapa")), EInOutError);
    EXPECT_THROW(gis.AbrirMapa(Caminho("mapa/dados")), EInOutError);
    EXPECT_EQ(Resumo(gis), antes);

    // Gravar sobre uma pasta falha e não mexe no que existe.
    EXPECT_THROW(gis.SalvarMapa(Caminho("mapa/dados")), EInOutError);
    EXPECT_EQ(Bytes(Caminho("mapa/dados/pontos.lin")), QByteArray("10 20\n30 40\n"));
}

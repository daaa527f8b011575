// Os registros que um plug-in devolve viram objetos do mapa: cada tipo com números conhecidos, o
// anel da área fechado pelo sistema, a imagem no retângulo zero, o plug-in que diz que o arquivo
// é inválido e o registro que não se converte.

#include "AjustesDGN.h"

#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISAreaCircular.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/Exception.h>

using namespace tavru;
using teste::DGN;
using teste::PastaDeTeste;

namespace {
const QString Graus = "teste_graus" + TTratadorDeArquivosDGN::MascaraDeBibliotecas().mid(1);

template <typename T>
T &Objeto(const TGISObjetoList &lista, int i)
{
    auto *o = dynamic_cast<T *>(lista.ObterGISObjeto(i));
    if (!o)
        throw std::runtime_error("objeto de outra classe");
    return *o;
}
} // namespace

TEST_F(DGN, CadaTipoDeRegistroViraSeuObjeto)
{
    ASSERT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDeTeste("graus")), 1);
    const QString arquivo = Arquivo("registros.tst",
                                    "ponto -23.5 -46.25 255\n"
                                    "linha 65280 3 2 3  -10 -20  -11 -21.5  -12 -22\n"
                                    "area 255 16711680 2 1 6  3  1 2  1 3  2 3\n"
                                    "circular -23.5 -46.25 1.5 7.25 0.5 2.5\n"
                                    "imagem 0 0 0 0 -\n"
                                    "imagem -10 -20 -11 -21.5 -\n"
                                    "tipo 9\ntipo 0\n");
    TGISObjetoList lista;
    ASSERT_TRUE(lista.Ler(arquivo, Graus));
    ASSERT_EQ(lista.Count(), 6); // os tipos 9 e 0 são ignorados

    const TGISPonto &ponto = Objeto<TGISPonto>(lista, 0);
    EXPECT_EQ(ponto.Posicao(), GISPosicao(-84600, -166500));
    EXPECT_EQ(ponto.ObterCor(), 255);
    EXPECT_EQ(ponto.Forma(), gisCirculo);

    const TGISLinha &linha = Objeto<TGISLinha>(lista, 1);
    ASSERT_EQ(linha.Pontos().Count(), 1);
    ASSERT_EQ(linha.Pontos().Items(0)->Count(), 3);
    EXPECT_EQ(linha.ObterPonto(0, 1), GISPosicao(-39600, -77400));
    EXPECT_EQ(linha.Caneta(), (TPen{65280, 3, psDot}));
    EXPECT_EQ(linha.Area(), GISRet(-43200, -79200, -36000, -72000));

    const TGISArea &area = Objeto<TGISArea>(lista, 2);
    ASSERT_EQ(area.Pontos().Items(0)->Count(), 4);
    EXPECT_EQ(area.ObterPonto(0, 3), GISPosicao(3600, 7200));
    EXPECT_EQ(area.ObterPonto(0, 2), GISPosicao(7200, 10800));
    EXPECT_EQ(area.Caneta(), (TPen{255, 2, psDash}));
    EXPECT_EQ(area.Pincel(), (TBrush{0xFF0000, bsCross}));

    // Raios e azimutes passam como vieram, sem o fator da unidade.
    const TGISAreaCircular &circular = Objeto<TGISAreaCircular>(lista, 3);
    EXPECT_EQ(circular.Posicao(), GISPosicao(-84600, -166500));
    EXPECT_EQ(circular.RaioMenor(), 1.5);
    EXPECT_EQ(circular.RaioMaior(), 7.25);
    EXPECT_EQ(circular.AzimuteInicial(), 0.5);
    EXPECT_EQ(circular.AzimuteFinal(), 2.5);

    EXPECT_EQ(Objeto<TGISImagem>(lista, 4).Area(), GISRet(0, 0, 0, 0));
    EXPECT_EQ(Objeto<TGISImagem>(lista, 5).Area(), GISRet(-36000, -72000, -39600, -77400));

    // Importação completa: os limites da lista são refeitos.
    EXPECT_LE(lista.Limites().Pos1.Latitude, -43200);
    EXPECT_GE(lista.Limites().Pos2.Latitude, 7200);
}

TEST_F(DGN, ImportarZeroDepoisDeDoisRegistrosGuardaOsDois)
{
    ASSERT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDeTeste("graus")), 1);
    TGISObjetoList lista;
    const QString arquivo = Arquivo("falha.tst", "ponto 1 2 0\nponto 3 4 0\nfalha\nponto 5 6 0\n");
    try {
        lista.Ler(arquivo, Graus);
        FAIL() << "sem erro";
    } catch (const Exception &e) {
        EXPECT_EQ(e.Message(), QStringLiteral("Arquivo em Formato Inválido!!"));
    }
    ASSERT_EQ(lista.Count(), 2);
    EXPECT_EQ(lista.ObterGISObjeto(1)->Posicao(), GISPosicao(10800, 14400));
    EXPECT_EQ(lista.Limites(), MundoInteiro); // não refeitos

    // Um arquivo que o plug-in não consegue abrir dá o mesmo erro.
    EXPECT_THROW(lista.Ler(Pasta.filePath("nao_existe.tst"), Graus), Exception);
    EXPECT_EQ(lista.Count(), 2);
}

TEST_F(DGN, RegistroQueNaoSeConverteParaAImportacaoEChegaAoHospedeiro)
{
    ASSERT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDeTeste("graus")), 1);
    TGISObjetoList lista;
    EXPECT_THROW(lista.Ler(Arquivo("negativa.tst", "ponto 1 2 0\nnegativa\nponto 3 4 0\n"), Graus), EConvertError);
    EXPECT_EQ(lista.Count(), 1);

    // Uma figura que não existe: o erro da figura, e a imagem não entra.
    EXPECT_THROW(lista.Ler(Arquivo("figura.tst", "imagem 1 2 3 4 " + Pasta.filePath("nao.png").toUtf8() + "\n"), Graus),
                 EInOutError);
    EXPECT_EQ(lista.Count(), 1);

    // Depois de um erro, a próxima leitura começa limpa.
    ASSERT_TRUE(lista.Ler(Arquivo("boa.tst", "ponto 1 2 0\n"), Graus));
    EXPECT_EQ(lista.Count(), 2);
}

TEST_F(DGN, PluginEscolhidoPelaExtensaoSemOlharMaiusculas)
{
    TGISObjetoList lista;
    TTratadorDeArquivosDGN tratador(lista);
    EXPECT_THROW(tratador.Ler(Arquivo("a.tst", "ponto 1 2 0\n")), EInvalidOperation);

    ASSERT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDeTeste("graus")), 1);
    tratador.Ler(Arquivo("B.TST", "ponto 1 2 0\n"));
    EXPECT_EQ(lista.Count(), 1);
    EXPECT_FALSE(tratador.Converter());
    EXPECT_THROW(tratador.Ler(Arquivo("c.tsg", "ponto 1 2 0\n")), EInvalidOperation);
    EXPECT_THROW(tratador.Ler(Arquivo("sem_extensao", "ponto 1 2 0\n")), EInvalidOperation);

    // Gravar não faz nada, nem levanta.
    const QString destino = Pasta.filePath("gravado.tst");
    tratador.Gravar(destino);
    EXPECT_FALSE(QFile::exists(destino));
}

TEST_F(DGN, ConfigurarNaDLLDiferenteDeZeroEntregaGrausSemDialogo)
{
    ASSERT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDeTeste("mistos")), 1);
    TGISObjetoList lista;
    TTratadorDeArquivosDGN tratador(lista);
    tratador.Ler(Arquivo("d.tst", "ponto -23.5 -46.25 0\n"));
    EXPECT_FALSE(tratador.Converter());
    EXPECT_TRUE(Roteiro->Perguntas.isEmpty());
    EXPECT_EQ(lista.ObterGISObjeto(0)->Posicao(), GISPosicao(-84600, -166500));
}

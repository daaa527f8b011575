// A carga dos plug-ins de uma pasta: o que vira plug-in, o que fica carregado sem uso, o que é
// liberado; o registro do tratador sob o nome do arquivo; trocar e acrescentar pastas.

#include "AjustesDGN.h"

#include <tavru/platform/Exception.h>

using namespace tavru;

namespace {

/// Se a biblioteca está no espaço de endereços do processo.
bool Mapeada(const QString &arquivo)
{
    QFile mapas(QStringLiteral("/proc/self/maps"));
    if (!mapas.open(QIODevice::ReadOnly))
        return false;
    return mapas.readAll().contains(QByteArray("/") + arquivo.toUtf8() + "\n");
}

class Diario
{
public:
    explicit Diario(const QString &caminho) : FCaminho(caminho) { qputenv("TAVRU_DIARIO_PLUGINS", caminho.toUtf8()); }
    ~Diario() { qunsetenv("TAVRU_DIARIO_PLUGINS"); }
    /// As linhas anotadas desde a última leitura.
    QStringList Ler()
    {
        QFile f(FCaminho);
        QStringList linhas;
        if (f.open(QIODevice::ReadOnly))
            linhas = QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        f.remove();
        return linhas;
    }

private:
    QString FCaminho;
};

const QString So = TTratadorDeArquivosDGN::MascaraDeBibliotecas().mid(1);

} // namespace

using teste::DGN;
using teste::PastaDeTeste;

TEST_F(DGN, PastaSemBibliotecasNaoOfereceOTratador)
{
    EXPECT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(Pasta.path()), 0);
    EXPECT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(Pasta.filePath("nao_existe")), 0);
    EXPECT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(QString()), 0);
    EXPECT_TRUE(TTratadorDeArquivosDGN::Plugins().isEmpty());
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao("tst", true), "");
    for (const TRegistro &r : TGISObjetoList::ObterRegistro())
        EXPECT_NE(r.Classe, &TTratadorDeArquivosDGN::Classe);
}

TEST_F(DGN, SoBibliotecasComAsQuatroFuncoesQueInicializamViramPlugins)
{
    Diario diario(Pasta.filePath("diario.txt"));
    EXPECT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDeTeste("mistos")), 1);
    const QString nome = "c_configura_um" + So;
    EXPECT_EQ(TTratadorDeArquivosDGN::Plugins(), QStringList{nome});

    // Registrado sob o nome do arquivo, com o filtro do plug-in para ler e para gravar.
    const TClasseTratador *classe = nullptr;
    ASSERT_TRUE(TGISObjetoList::ObterRefClassPeloTipo(nome, classe));
    EXPECT_EQ(classe, &TTratadorDeArquivosDGN::Classe);
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloFiltro("Configura sozinho (*.tst)|*.tst", true), nome);
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloFiltro("Configura sozinho (*.tst)|*.tst", false), nome);

    // Sem iImportar: nunca inicializada e deixada carregada. iInicializar 0: liberada. O
    // arquivo que não é biblioteca só é pulado.
    EXPECT_TRUE(Mapeada("a_sem_importar" + So));
    EXPECT_FALSE(Mapeada("b_inicializar_zero" + So));
    EXPECT_EQ(diario.Ler(), (QStringList{"inicializar b_inicializar_zero", "inicializar c_configura_um"}));
}

TEST_F(DGN, AtualizarTrocaTodosECarregarAcrescenta)
{
    Diario diario(Pasta.filePath("diario.txt"));
    EXPECT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDeTeste("graus")), 1);
    EXPECT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDeTeste("grade")), 1);
    // A mesma pasta de novo: nada entra e nada é levantado (o nome de tipo já existe).
    EXPECT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDeTeste("graus")), 0);
    EXPECT_EQ(TTratadorDeArquivosDGN::Plugins(), (QStringList{"teste_graus" + So, "teste_grade" + So}));
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao("tst", true), "teste_graus" + So);
    diario.Ler();

    TTratadorDeArquivosDGN::AtualizarPlugins(PastaDeTeste("grade"));
    EXPECT_EQ(diario.Ler(), (QStringList{"finalizar teste_graus", "finalizar teste_grade", "inicializar teste_grade"}));
    EXPECT_EQ(TTratadorDeArquivosDGN::Plugins(), QStringList{"teste_grade" + So});
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao("tst", true), "");
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao("tsg", true), "teste_grade" + So);
    EXPECT_FALSE(Mapeada("teste_graus" + So));

    TTratadorDeArquivosDGN::LiberarPlugins();
    EXPECT_EQ(diario.Ler(), QStringList{"finalizar teste_grade"});
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao("tsg", true), "");
}

TEST_F(DGN, NomeDeTipoQueJaExisteNaoViraPluginNemLevanta)
{
    // Outro tratador já tem o nome do arquivo do plug-in: o plug-in é finalizado e liberado.
    TGISObjetoList::RegistrarTratadorDeArquivo("teste_graus" + So, TTratadorDeArquivosDGN::Classe, "", "");
    Diario diario(Pasta.filePath("diario.txt"));
    EXPECT_EQ(TTratadorDeArquivosDGN::CarregarPlugins(PastaDeTeste("graus")), 0);
    EXPECT_TRUE(TTratadorDeArquivosDGN::Plugins().isEmpty());
    EXPECT_EQ(diario.Ler(), (QStringList{"inicializar teste_graus", "finalizar teste_graus"}));
}

// Registro de tratadores de arquivo: filtros combinados, buscas por filtro e por extensão,
// registro repetido, remoção por classe, e leitura e gravação pela lista de objetos.

#include "ObjetosDeTeste.h"

#include "platform/Exception.h"

#include <QIODevice>
#include <gtest/gtest.h>

using namespace tavru;

namespace {
QStringList Chamadas;

class TTratadorA : public TGISTratadorDeArquivo
{
public:
    static const TClasseTratador Classe;
    using TGISTratadorDeArquivo::TGISTratadorDeArquivo;
    ~TTratadorA() override { Chamadas.append(QStringLiteral("liberado")); }
    void Ler(const QString &nome) override
    {
        Chamadas.append(QStringLiteral("Ler ") + nome);
        Lista().Add(new teste::TObjetoTeste(nome));
    }
    void Gravar(const QString &nome) override { Chamadas.append(QStringLiteral("Gravar ") + nome); }
    bool Reconhece(QIODevice &) override { return true; }
};
const TClasseTratador TTratadorA::Classe = TClasseTratador::De<TTratadorA>("TTratadorA");

class TTratadorB : public TTratadorA
{
public:
    static const TClasseTratador Classe;
    using TTratadorA::TTratadorA;
};
const TClasseTratador TTratadorB::Classe = TClasseTratador::De<TTratadorB>("TTratadorB");

const QString Shp = QStringLiteral("Shapefiles (*.shp)|*.shp");
const QString Tiff = QStringLiteral("Imagens TIFF (*.tiff)|*.tiff");
const QString Tif = QStringLiteral("Imagens (*.tif;*.png)|*.tif;*.png");

// Cada teste começa com o registro vazio e devolve o que havia.
class Registro : public ::testing::Test
{
protected:
    void SetUp() override
    {
        FGuardado = TGISObjetoList::ObterRegistro();
        TGISObjetoList::LimparRegistro();
        Chamadas.clear();
    }
    void TearDown() override { TGISObjetoList::RestaurarRegistro(FGuardado); }

    static void Registrar(const QString &tipo, const TClasseTratador &c, const QString &leitura,
                          const QString &escrita)
    {
        TGISObjetoList::RegistrarTratadorDeArquivo(tipo, c, leitura, escrita);
    }

private:
    std::vector<TRegistro> FGuardado;
};
} // namespace

TEST_F(Registro, FiltrosCombinados)
{
    EXPECT_EQ(TGISObjetoList::ObterFiltroCompletoDeLeitura(),
              QStringLiteral("Arquivos Compatíveis ()||Todos os Arquivos (*.*)|*.*"));
    Registrar(QStringLiteral("SoGrava"), TTratadorA::Classe, QString(), Shp);
    Registrar(QStringLiteral("TIFF"), TTratadorB::Classe, Tiff, QString());
    EXPECT_EQ(TGISObjetoList::ObterFiltroCompletoDeLeitura(),
              QStringLiteral("Arquivos Compatíveis (;*.tiff)|;*.tiff|") + Tiff
                  + QStringLiteral("|Todos os Arquivos (*.*)|*.*"));
    EXPECT_EQ(TGISObjetoList::ObterFiltroCompletoDeEscrita(),
              QStringLiteral("Arquivos Compatíveis (*.shp)|*.shp|") + Shp
                  + QStringLiteral("|Todos os Arquivos (*.*)|*.*"));
    Registrar(QStringLiteral("Imagem"), TTratadorB::Classe, Tif, Tif);
    Registrar(QStringLiteral("SemBarra"), TTratadorB::Classe, QStringLiteral("*.abc"), QString());
    EXPECT_EQ(TGISObjetoList::ObterFiltroCompletoDeLeitura(),
              QStringLiteral("Arquivos Compatíveis (;*.tiff;*.tif;*.png;*.abc)|;*.tiff;*.tif;*.png;*.abc|") + Tiff
                  + QLatin1Char('|') + Tif + QStringLiteral("|*.abc|Todos os Arquivos (*.*)|*.*"));
}

TEST_F(Registro, BuscasPorFiltroEPorExtensao)
{
    Registrar(QStringLiteral("TIFF"), TTratadorA::Classe, Tiff, QString());
    Registrar(QStringLiteral("Imagem"), TTratadorB::Classe, Tif, Tif);
    Registrar(QStringLiteral("Shape"), TTratadorB::Classe, Shp, Shp);
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloFiltro(Tif, true), QStringLiteral("Imagem"));
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloFiltro(Shp, false), QStringLiteral("Shape"));
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloFiltro(Tiff, false), QString());
    EXPECT_EQ(TGISObjetoList::ObterTipoPeloFiltro(QStringLiteral("*.shp"), true), QString());

    for (const char *e : {"SHP", "shp", ".shp", ".SHP"})
        EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao(QString::fromLatin1(e), true), QStringLiteral("Shape")) << e;
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao(QStringLiteral("tif"), true), QStringLiteral("TIFF")); // o primeiro
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao(QStringLiteral("tif"), false), QStringLiteral("Imagem"));
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao(QStringLiteral("dgn"), true), QString());

    const TClasseTratador *c = &TTratadorA::Classe;
    EXPECT_FALSE(TGISObjetoList::ObterRefClassPeloTipo(QStringLiteral("tiff"), c));
    EXPECT_EQ(c, nullptr);
    EXPECT_TRUE(TGISObjetoList::ObterRefClassPeloTipo(QStringLiteral("Imagem"), c));
    EXPECT_EQ(c, &TTratadorB::Classe);
}

TEST_F(Registro, RepetidoLevantaERemoverTiraTodasDaClasse)
{
    Registrar(QStringLiteral("Shape"), TTratadorA::Classe, Shp, Shp);
    try {
        Registrar(QStringLiteral("Shape"), TTratadorB::Classe, Tif, Tif);
        FAIL() << "o registro repetido deveria levantar";
    } catch (const EInvalidOperation &e) {
        EXPECT_EQ(e.Message(), QStringLiteral("O tratador para o tipo <Shape> ja foi registrado!!"));
    }
    ASSERT_EQ(TGISObjetoList::ObterRegistro().size(), 1u);
    EXPECT_EQ(TGISObjetoList::ObterRegistro()[0].Classe, &TTratadorA::Classe);
    EXPECT_EQ(TGISObjetoList::ObterRegistro()[0].FiltroLeitura, Shp);

    Registrar(QStringLiteral("B"), TTratadorB::Classe, Tif, Tif);
    Registrar(QStringLiteral("Shape2"), TTratadorA::Classe, Shp, Shp);
    TGISObjetoList::RemoverRegistroTratadorDeArquivo(TTratadorA::Classe);
    ASSERT_EQ(TGISObjetoList::ObterRegistro().size(), 1u);
    EXPECT_EQ(TGISObjetoList::ObterRegistro()[0].Tipo, QStringLiteral("B"));
    {
        TRegistraTratador registro(QStringLiteral("A"), TTratadorA::Classe, Shp, QString());
        EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao(QStringLiteral("shp"), true), QStringLiteral("A"));
    }
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao(QStringLiteral("shp"), true), QString());
}

TEST_F(Registro, LerEGravarPelaLista)
{
    Registrar(QStringLiteral("A"), TTratadorA::Classe, Shp, Shp);
    TGISObjetoList l;
    l.AtribuirNomeArquivo(QStringLiteral("antes"));
    EXPECT_FALSE(l.Ler(QStringLiteral("x.dgn"), QStringLiteral("DGN")));
    EXPECT_FALSE(l.Gravar(QStringLiteral("x.dgn"), QStringLiteral("a")));
    EXPECT_EQ(l.NomeArquivo(), QStringLiteral("antes"));
    EXPECT_TRUE(Chamadas.isEmpty());

    EXPECT_TRUE(l.Ler(QStringLiteral("mapa.shp"), QStringLiteral("A")));
    EXPECT_EQ(l.Count(), 1); // o tratador trabalhou sobre esta lista
    EXPECT_EQ(l.NomeArquivo(), QStringLiteral("mapa.shp"));
    EXPECT_TRUE(l.Gravar(QStringLiteral("saida.shp"), QStringLiteral("A")));
    EXPECT_EQ(l.NomeArquivo(), QStringLiteral("saida.shp"));
    EXPECT_EQ(Chamadas, QStringList({"Ler mapa.shp", "liberado", "Gravar saida.shp", "liberado"}));
}

// Registro de tratadores de arquivo: filtros combinados, buscas por filtro e por extensão,
// registro repetido, remoção por classe, e leitura e gravação pela lista de objetos.

#include "ObjetosDeTeste.h"

#include <tavru/platform/Exception.h>

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
const auto Registrar = &TGISObjetoList::RegistrarTratadorDeArquivo;

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

private:
    std::vector<TRegistro> FGuardado;
};
} // namespace

using L = TGISObjetoList;

TEST_F(Registro, FiltrosCombinados)
{
    EXPECT_EQ(L::ObterFiltroCompletoDeLeitura(), "Arquivos Compatíveis ()||Todos os Arquivos (*.*)|*.*");
    Registrar("SoGrava", TTratadorA::Classe, QString(), Shp);
    Registrar("TIFF", TTratadorB::Classe, Tiff, QString());
    const QString todos = "|Todos os Arquivos (*.*)|*.*";
    EXPECT_EQ(L::ObterFiltroCompletoDeLeitura(), "Arquivos Compatíveis (;*.tiff)|;*.tiff|" + Tiff + todos);
    EXPECT_EQ(L::ObterFiltroCompletoDeEscrita(), "Arquivos Compatíveis (*.shp)|*.shp|" + Shp + todos);
    Registrar("Imagem", TTratadorB::Classe, Tif, Tif);
    Registrar("SemBarra", TTratadorB::Classe, "*.abc", QString());
    EXPECT_EQ(L::ObterFiltroCompletoDeLeitura(),
              "Arquivos Compatíveis (;*.tiff;*.tif;*.png;*.abc)|;*.tiff;*.tif;*.png;*.abc|" + Tiff + '|' + Tif
                  + "|*.abc" + todos);
}

TEST_F(Registro, BuscasPorFiltroEPorExtensao)
{
    Registrar("TIFF", TTratadorA::Classe, Tiff, QString());
    Registrar("Imagem", TTratadorB::Classe, Tif, Tif);
    Registrar("Shape", TTratadorB::Classe, Shp, Shp);
    EXPECT_EQ(L::ObterTipoPeloFiltro(Tif, true), "Imagem");
    EXPECT_EQ(L::ObterTipoPeloFiltro(Shp, false), "Shape");
    EXPECT_EQ(L::ObterTipoPeloFiltro(Tiff, false), QString());
    EXPECT_EQ(L::ObterTipoPeloFiltro("*.shp", true), QString());

    for (const char *e : {"SHP", "shp", ".shp", ".SHP"})
        EXPECT_EQ(L::ObterTipoPelaExtencao(e, true), "Shape") << e;
    EXPECT_EQ(L::ObterTipoPelaExtencao("tif", true), "TIFF"); // o primeiro
    EXPECT_EQ(L::ObterTipoPelaExtencao("tif", false), "Imagem");
    EXPECT_EQ(L::ObterTipoPelaExtencao("dgn", true), QString());

    const TClasseTratador *c = &TTratadorA::Classe;
    EXPECT_FALSE(L::ObterRefClassPeloTipo("tiff", c));
    EXPECT_EQ(c, nullptr);
    EXPECT_TRUE(L::ObterRefClassPeloTipo("Imagem", c));
    EXPECT_EQ(c, &TTratadorB::Classe);
}

TEST_F(Registro, RepetidoLevantaERemoverTiraTodasDaClasse)
{
    Registrar("Shape", TTratadorA::Classe, Shp, Shp);
    try {
        Registrar("Shape", TTratadorB::Classe, Tif, Tif);
        FAIL() << "o registro repetido deveria levantar";
    } catch (const EInvalidOperation &e) {
        EXPECT_EQ(e.Message(), "O tratador para o tipo <Shape> ja foi registrado!!");
    }
    ASSERT_EQ(L::ObterRegistro().size(), 1u);
    EXPECT_EQ(L::ObterRegistro()[0].Classe, &TTratadorA::Classe);
    EXPECT_EQ(L::ObterRegistro()[0].FiltroLeitura, Shp);

    Registrar("B", TTratadorB::Classe, Tif, Tif);
    Registrar("Shape2", TTratadorA::Classe, Shp, Shp);
    L::RemoverRegistroTratadorDeArquivo(TTratadorA::Classe);
    ASSERT_EQ(L::ObterRegistro().size(), 1u);
    EXPECT_EQ(L::ObterRegistro()[0].Tipo, "B");
    {
        TRegistraTratador registro("A", TTratadorA::Classe, Shp, QString());
        EXPECT_EQ(L::ObterTipoPelaExtencao("shp", true), "A");
    }
    EXPECT_EQ(L::ObterTipoPelaExtencao("shp", true), QString());
}

TEST_F(Registro, LerEGravarPelaLista)
{
    Registrar("A", TTratadorA::Classe, Shp, Shp);
    TGISObjetoList l;
    l.AtribuirNomeArquivo("antes");
    EXPECT_FALSE(l.Ler("x.dgn", "DGN"));
    EXPECT_FALSE(l.Gravar("x.dgn", "a"));
    EXPECT_EQ(l.NomeArquivo(), "antes");
    EXPECT_TRUE(Chamadas.isEmpty());

    EXPECT_TRUE(l.Ler("mapa.shp", "A"));
    EXPECT_EQ(l.Count(), 1); // o tratador trabalhou sobre esta lista
    EXPECT_EQ(l.NomeArquivo(), "mapa.shp");
    EXPECT_TRUE(l.Gravar("saida.shp", "A"));
    EXPECT_EQ(l.NomeArquivo(), "saida.shp");
    EXPECT_EQ(Chamadas, QStringList({"Ler mapa.shp", "liberado", "Gravar saida.shp", "liberado"}));
}

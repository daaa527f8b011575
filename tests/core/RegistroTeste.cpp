// Registro de tratadores de arquivo: filtros combinados, buscas por filtro e por extensão,
// registro repetido, remoção por classe, e leitura e gravação pela lista de objetos.

#include "ObjetosDeTeste.h"

#include <tavru/platform/Exception.h>

#include <QFile>
#include <QIODevice>
#include <QTemporaryDir>
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

/// Reconhece só arquivos que começam com "TIF2"; lê a opção "camada".
class TTratadorAssinado : public TTratadorA
{
public:
    static const TClasseTratador Classe;
    using TTratadorA::TTratadorA;
    void Ler(const QString &nome) override
    {
        Chamadas.append(QStringLiteral("camada=") + Opcoes().value(QStringLiteral("camada")).toString());
        TTratadorA::Ler(nome);
    }
    bool Reconhece(QIODevice &fluxo) override { return fluxo.read(4) == "TIF2"; }
};
const TClasseTratador TTratadorAssinado::Classe = TClasseTratador::De<TTratadorAssinado>("TTratadorAssinado");

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

TEST_F(Registro, BuscaExataPeloArquivoComParecidosEDoisPretendentes)
{
    QTemporaryDir pasta;
    auto arquivo = [&pasta](const char *nome, const QByteArray &conteudo) {
        const QString caminho = pasta.filePath(QString::fromLatin1(nome));
        QFile f(caminho);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(conteudo);
        return caminho;
    };
    Registrar("TIFF", TTratadorA::Classe, Tiff, QString());            // *.tiff
    Registrar("Imagem", TTratadorA::Classe, Tif, Tif);                 // *.tif;*.png
    Registrar("TIF2", TTratadorAssinado::Classe, "TIF2 (*.tif)|*.tif", QString());
    Registrar("Shape", TTratadorB::Classe, Shp, Shp);

    // Parecidos: a busca solta acha ".tif" dentro de "*.tiff"; a exata não.
    const QString tif = arquivo("foto.TIF", "II*\0");
    EXPECT_EQ(L::ObterTipoPelaExtencao("tif", true), "TIFF");
    EXPECT_EQ(L::ObterTipoPeloArquivo(arquivo("foto.tiff", "x"), true), "TIFF");
    EXPECT_EQ(L::ObterTipoPeloArquivo(pasta.filePath("rio.shp"), true), "Shape"); // um só: nem abre
    EXPECT_EQ(L::ObterTipoPeloArquivo(pasta.filePath("rio.shp.bak"), true), QString());
    EXPECT_EQ(L::ObterTipoPeloArquivo(pasta.filePath("shp"), true), QString());
    EXPECT_EQ(L::ObterTipoPeloArquivo(pasta.filePath("foto.ti"), true), QString());

    // Dois pretendentes de "*.tif": quem reconhece ganha, mesmo registrado depois; ninguém
    // reconhece (A reconhece tudo, então só com ele de fora) ou sem arquivo: o primeiro.
    EXPECT_EQ(L::ObterTipoPeloArquivo(arquivo("b.tif", "TIF2...."), true), "Imagem"); // A reconhece tudo
    L::RemoverRegistroTratadorDeArquivo(TTratadorA::Classe);
    Registrar("Outro", TTratadorB::Classe, "Outro (*.tif)|*.tif", QString());
    Registrar("TIF2b", TTratadorAssinado::Classe, "TIF2 (*.tif)|*.tif", QString());
    // B (Outro) reconhece tudo mas vem depois de TIF2: TIF2 reconhece primeiro.
    EXPECT_EQ(L::ObterTipoPeloArquivo(arquivo("c.tif", "TIF2...."), true), "TIF2");
    L::LimparRegistro();
    Registrar("Outro", TTratadorAssinado::Classe, "Outro (*.tif)|*.tif", QString());
    Registrar("TIF2", TTratadorAssinado::Classe, "TIF2 (*.tif)|*.tif", QString());
    Registrar("Ultimo", TTratadorB::Classe, "U (*.tif)|*.tif", QString());
    EXPECT_EQ(L::ObterTipoPeloArquivo(arquivo("d.tif", "nada"), true), "Ultimo"); // o único que reconhece
    L::RemoverRegistroTratadorDeArquivo(TTratadorB::Classe);
    EXPECT_EQ(L::ObterTipoPeloArquivo(tif, true), "Outro"); // nenhum reconhece: o primeiro
    EXPECT_EQ(L::ObterTipoPeloArquivo(pasta.filePath("falta.tif"), true), "Outro");
    EXPECT_EQ(L::ObterTipoPeloArquivo(tif, false), QString()); // sem filtro de gravação
}

TEST_F(Registro, OpcoesDeLeituraChegamAoTratador)
{
    Registrar("A", TTratadorAssinado::Classe, Shp, Shp);
    TGISObjetoList l;
    EXPECT_TRUE(l.Ler("x.shp", "A", QVariantMap{{QStringLiteral("camada"), QStringLiteral("rios")}}));
    EXPECT_TRUE(l.Ler("y.shp", "A")); // sem opções: vazias, não as da leitura anterior
    EXPECT_EQ(Chamadas, QStringList({"camada=rios", "Ler x.shp", "liberado", "camada=", "Ler y.shp", "liberado"}));
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

// Registro na carga de uma biblioteca: uma falha (tipo repetido) não derruba o hospedeiro, é
// anotada e pulada, e a descarga não desfaz o registro de outro.

#include <tavru/core/TGISObjetoList.h>

#include <QLibrary>
#include <gtest/gtest.h>

using namespace tavru;

namespace {
bool Registrado(const QString &tipo)
{
    const TClasseTratador *classe = nullptr;
    return TGISObjetoList::ObterRefClassPeloTipo(tipo, classe);
}
} // namespace

TEST(CargaDeTratadores, FalhaNaCargaEAnotadaEPuladaSemTerminar)
{
    ASSERT_TRUE(Registrado(QStringLiteral("XML"))); // registrado pela biblioteca do mapa
    const int falhasAntes = TGISObjetoList::FalhasDeRegistro().size();
    QLibrary biblioteca(QStringLiteral(TAVRU_TRATADOR_REPETIDO));
    ASSERT_TRUE(biblioteca.load()) << qPrintable(biblioteca.errorString());

    const QStringList falhas = TGISObjetoList::FalhasDeRegistro();
    ASSERT_EQ(falhas.size(), falhasAntes + 1);
    EXPECT_TRUE(falhas.last().contains(QStringLiteral("\"XML\""))) << qPrintable(falhas.last());
    EXPECT_TRUE(falhas.last().contains(QStringLiteral("ja foi registrado"))) << qPrintable(falhas.last());
    EXPECT_TRUE(Registrado(QStringLiteral("Novo"))); // o que vem depois da falha se registra
    EXPECT_EQ(TGISObjetoList::ObterTipoPelaExtencao(QStringLiteral("rep"), true), QString());

    ASSERT_TRUE(biblioteca.unload());
    EXPECT_FALSE(Registrado(QStringLiteral("Novo")));
    // O registro pulado não é desfeito: o "XML" da biblioteca do mapa (mesma classe) fica.
    EXPECT_TRUE(Registrado(QStringLiteral("XML")));
}

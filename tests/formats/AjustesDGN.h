#pragma once
// Ajustes comuns dos testes de DGN: registro de tratadores e de plug-ins guardados e restaurados,
// diálogos roteirizados, uma pasta temporária para os desenhos e os ".geo".

#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/formats/TTratadorDeArquivosDGN.h>
#include <tavru/platform/TBrush.h>
#include <tavru/platform/TPen.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <GeographicLib/TransverseMercator.hpp>
#include <QFile>
#include <QTemporaryDir>
#include <ostream>
#include <gtest/gtest.h>

namespace tavru {
/// A caneta e o pincel nas mensagens de falha.
inline void PrintTo(const TPen &c, std::ostream *os) { *os << "{" << c.Color << ", " << c.Width << ", " << int(c.Style) << "}"; }
inline void PrintTo(const TBrush &p, std::ostream *os) { *os << "{" << p.Color << ", " << int(p.Style) << "}"; }
} // namespace tavru

namespace teste {

/// Pasta de plug-ins de teste ("graus", "grade", "mistos") ou do pacote ("dgn", "dgn-graus").
inline QString PastaDeTeste(const char *nome)
{
    return QStringLiteral(TAVRU_PLUGINS_TESTE "/") + QLatin1String(nome);
}
inline QString PastaDoPacote(const char *nome)
{
    return QStringLiteral(TAVRU_PLUGINS_PACOTE "/") + QLatin1String(nome);
}

/// A posição de referência (segundos de arco) de um ponto UTM sul do fuso 23 (meridiano -45) no
/// GRS 1980, pelo GeographicLib.
inline tavru::TGISPosicao Utm23Sul(double leste, double norte)
{
    const GeographicLib::TransverseMercator tm(6378137.0, 1 / 298.257222101, 0.9996);
    double lat = 0, lon = 0;
    tm.Reverse(-45.0, leste - 500000.0, norte - 10000000.0, lat, lon);
    return tavru::GISPosicao(tavru::Arredondar(lat * 3600.0), tavru::Arredondar(lon * 3600.0));
}

class DGN : public ::testing::Test
{
protected:
    void SetUp() override
    {
        FRegistro = tavru::TGISObjetoList::ObterRegistro();
        tavru::TTratadorDeArquivosDGN::LiberarPlugins();
        auto roteirizados = std::make_unique<tavru::TDialogosRoteirizados>();
        Roteiro = roteirizados.get();
        FAnterior = tavru::TrocarDialogos(std::move(roteirizados));
        ASSERT_TRUE(Pasta.isValid());
    }
    void TearDown() override
    {
        tavru::TTratadorDeArquivosDGN::LiberarPlugins();
        tavru::TrocarDialogos(std::move(FAnterior));
        tavru::TGISObjetoList::RestaurarRegistro(FRegistro);
    }

    /// Grava `texto` em `nome` na pasta temporária e devolve o caminho.
    QString Arquivo(const QString &nome, const QByteArray &texto)
    {
        const QString caminho = Pasta.filePath(nome);
        QFile f(caminho);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(texto);
        return caminho;
    }
    static QByteArray Conteudo(const QString &caminho)
    {
        QFile f(caminho);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }

    QTemporaryDir Pasta;
    tavru::TDialogosRoteirizados *Roteiro = nullptr;

private:
    std::vector<tavru::TRegistro> FRegistro;
    std::unique_ptr<tavru::TProvedorDeDialogos> FAnterior;
};

} // namespace teste

// O mapa de exemplo de data/mapa (o mesmo que a demonstração embute): cada camada de camadas.txt se
// lê com o tratador XML, com o número de objetos esperado, sem perder nenhum em silêncio.

#include "AjustesXML.h"

#include <QMap>

using namespace tavru;

TEST(MapaExemplo, TodasAsCamadasSeLeem)
{
    const QString pasta = TAVRU_DADOS "/mapa/";
    QFile indice(pasta + "camadas.txt");
    ASSERT_TRUE(indice.open(QIODevice::ReadOnly | QIODevice::Text));
    const QMap<QString, int> esperado{{"paises.xml", 13}, {"estados.xml", 27}, {"lagos.xml", 17}, {"litoral.xml", 71},
                                      {"rios.xml", 47},   {"cidades.xml", 46}, {"plotagem.xml", 7}};
    QMap<QString, int> lido;
    for (const QString &linha : QString::fromUtf8(indice.readAll()).split('\n', Qt::SkipEmptyParts)) {
        const QString arquivo = linha.section(';', 0, 0).trimmed(); // arquivo;nome;tipo
        if (arquivo.startsWith('#'))
            continue;
        EXPECT_TRUE(linha.section(';', 2).startsWith("gtc")) << linha.toStdString();
        TGISObjetoList lista;
        ASSERT_NO_THROW(TTratadorDeArquivosXML(lista).Ler(pasta + arquivo)) << arquivo.toStdString();
        lido[arquivo] = lista.Count();
        EXPECT_TRUE(Valida(lista.Limites())) << arquivo.toStdString();
    }
    EXPECT_EQ(lido, esperado);
}

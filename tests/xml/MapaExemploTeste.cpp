// O mapa de exemplo de data/mapa: cada camada de camadas.txt se lê com o tratador XML, com o
// número de objetos esperado e as informações que a demonstração mostra.

#include "AjustesXML.h"

#include "elements/GISPonto.h"
#include "elements/GISTrajeto.h"

#include <QMap>

using namespace tavru;

TEST(MapaExemplo, TodasAsCamadasSeLeem)
{
    const QString pasta = QStringLiteral(TAVRU_DADOS "/mapa/");
    QFile indice(pasta + QStringLiteral("camadas.txt"));
    ASSERT_TRUE(indice.open(QIODevice::ReadOnly | QIODevice::Text));
    const QMap<QString, int> esperado{{QStringLiteral("paises.xml"), 13}, {QStringLiteral("estados.xml"), 27},
                                      {QStringLiteral("lagos.xml"), 17},  {QStringLiteral("litoral.xml"), 71},
                                      {QStringLiteral("rios.xml"), 47},   {QStringLiteral("cidades.xml"), 46},
                                      {QStringLiteral("plotagem.xml"), 8}};
    QMap<QString, int> lido;
    int trajetos = 0;
    while (!indice.atEnd()) {
        const QString linha = QString::fromUtf8(indice.readLine()).trimmed();
        if (linha.isEmpty() || linha.startsWith(QLatin1Char('#')))
            continue;
        const QStringList campos = linha.split(QLatin1Char(';')); // arquivo;nome;tipo
        ASSERT_EQ(campos.size(), 3) << linha.toStdString();
        EXPECT_TRUE(campos[2].startsWith(QStringLiteral("gtc")));
        TGISObjetoList lista;
        ASSERT_NO_THROW(tavru::TTratadorDeArquivosXML(lista).Ler(pasta + campos[0])) << campos[0].toStdString();
        lido[campos[0]] = lista.Count();
        EXPECT_TRUE(Valida(lista.Limites())) << campos[0].toStdString();
        if (auto *sp = dynamic_cast<TGISPonto *>(lista.ObterObjeto(QStringLiteral("Nome"), QStringLiteral("São Paulo")))) {
            EXPECT_EQ(sp->Informacoes().ObterNomeCampo(0), QStringLiteral("Nome"));
            EXPECT_NEAR(sp->Posicao().Latitude, -23.56 * 3600, 0.1 * 3600);
        }
        for (int i = 0; i < lista.Count(); ++i)
            if (auto *t = dynamic_cast<TGISTrajeto *>(lista[i])) {
                ++trajetos;
                EXPECT_EQ(t->ObterPonto(0)->Rotulo(), QStringLiteral("Base Aérea de Natal"));
            }
    }
    EXPECT_EQ(lido, esperado);
    EXPECT_EQ(trajetos, 1);
}

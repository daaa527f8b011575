#pragma once
/// \file
/// O tratador de desenhos DGN, que entrega a leitura a bibliotecas de plug-in.

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/core/TClasseTratador.h>
#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/platform/Exportacao.h>

#include <QString>
#include <QStringList>
#include <cstdint>
#include <exception>

namespace tavru {

/// Tratador só de leitura de desenhos (DGN e o que mais um plug-in ler): não lê o desenho ele
/// mesmo, mas o entrega a uma biblioteca de plug-in (o contrato está em `PluginDGN.h`) e faz dos
/// registros que ela devolve objetos do mapa.
///
/// **Plug-ins.** O registro de plug-ins é do processo: para cada biblioteca carregada, o nome do
/// arquivo (sem pasta) e a biblioteca, na ordem em que foram carregadas. Cada plug-in aceito
/// registra este tratador em `TGISObjetoList` sob o nome do arquivo da biblioteca, com o filtro
/// dele como filtro de leitura e de gravação. `AtualizarPlugins` troca todos pelos de uma pasta;
/// `CarregarPlugins` (extensão) acrescenta os de mais uma pasta. Ao descarregar a biblioteca da
/// casa os plug-ins são liberados (`iFinalizar` e a liberação de cada um).
///
/// **Leitura.** `Ler` escolhe o primeiro plug-in cuja máscara tem a extensão do arquivo (o tipo
/// pelo qual o tratador foi pedido não conta: com dois plug-ins para "*.dgn", o primeiro
/// carregado ganha). Quando o plug-in entrega coordenadas da grade UTM, pergunta o fuso, a zona,
/// o elipsoide e a unidade (`TfrmConfigurarDGN::Executar`, uma vez por desenho, guardados no
/// ".geo" ao lado dele) e converte cada coordenada para latitude e longitude.
///
/// Erros: um `iImportar` que devolve 0 levanta `Exception` com "Arquivo em Formato Inválido!!"
/// e os objetos já acrescentados ficam na lista. Um registro que não se converte (coordenada da
/// grade fora do fuso, figura ilegível, número de vértices negativo) guarda o primeiro erro, faz
/// o resto da importação ser ignorado e levanta esse erro quando `iImportar` volta, com os
/// objetos de antes na lista: é o que acontece quando o erro atravessa o plug-in, sem que uma
/// exceção passe por código em C. `Gravar` não faz nada.
class TAVRU_GIS_EXPORT TTratadorDeArquivosDGN : public TGISTratadorDeArquivo
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseTratador Classe;

    /// Padrões: zona "22K", fator 1.0 (metros), elipsoide 19.
    explicit TTratadorDeArquivosDGN(TGISObjetoList &lista);

    /// Lê o desenho pelo plug-in da extensão dele e acrescenta os objetos à lista (ver a classe).
    /// Cancelar o diálogo da grade não lê nada e não é erro. Sem plug-in para a extensão levanta
    /// `EInvalidOperation`; ao fim, `CalcularLimites` da lista.
    void Ler(const QString &nomeArquivo) override;
    /// Não grava nada e não levanta nada.
    void Gravar(const QString &nomeArquivo) override;
    /// Verdadeiro sem ler o fluxo.
    bool Reconhece(QIODevice &fluxo) override;

    // Plug-ins.

    /// Libera todos os plug-ins e carrega os da `pasta`.
    static void AtualizarPlugins(const QString &pasta);
    /// Extensão: carrega os plug-ins da `pasta` sem liberar os que já estão carregados. Um
    /// arquivo com o nome de um plug-in já carregado é pulado. Responde quantos entraram.
    static int CarregarPlugins(const QString &pasta);
    /// Chama `iFinalizar` de cada plug-in e o libera, em ordem; esvazia o registro de plug-ins e
    /// tira esta classe do registro de tratadores.
    static void LiberarPlugins();
    /// Os nomes dos plug-ins carregados, na ordem.
    static QStringList Plugins();
    /// A máscara de bibliotecas da plataforma ("*.so", "*.dll", "*.dylib").
    static QString MascaraDeBibliotecas();

    // Leitura dos registros.

    /// Faz um objeto do registro de tipo 1 a 5 e o acrescenta à lista; outros tipos são
    /// ignorados. Levanta os erros da conversão (a função de retorno os guarda).
    void CallBack(std::uint16_t tipo, const void *dados);
    /// A função de retorno dada a `iImportar`: `contexto` é o tratador. Nunca deixa escapar uma
    /// exceção (guarda a primeira; ver a classe) e devolve sempre 1.
    static std::int32_t RetornoDoPlugin(std::uint16_t tipo, const void *dados, void *contexto);
    /// O erro guardado pela função de retorno, quando houve.
    std::exception_ptr ErroDoPlugin() const { return FErro; }

    /// Com `Converter`, multiplica `a` (leste) e `b` (norte) pelo fator e converte da grade UTM
    /// na zona e no elipsoide para graus (`ConverteGradeUTM_para_LatLong`); sem, `a` é a latitude
    /// e `b` a longitude em graus. A posição é o valor em segundos de arco, arredondado
    /// (`Arredondar`: NaN e valores fora dos 32 bits dão `INT_MIN`).
    /// \throws EConvertError zona, elipsoide ou coordenada que a conversão UTM não aceita.
    TGISPosicao ConvertePonto(double a, double b) const;

    bool Converter() const { return FConverter; }
    void AtribuirConverter(bool converter) { FConverter = converter; }
    /// Zona UTM: o número do fuso seguido da letra ("23K").
    const QString &Zona() const { return FZona; }
    void AtribuirZona(const QString &zona) { FZona = zona; }
    /// Fator das coordenadas da grade: 1.0 para metros, 1000.0 para quilômetros.
    double Fator() const { return FFator; }
    void AtribuirFator(double fator) { FFator = fator; }
    /// Índice do elipsoide (ver `NomesElipsoides`).
    std::int32_t Elipsoide() const { return FElipsoide; }
    void AtribuirElipsoide(std::int32_t elipsoide) { FElipsoide = elipsoide; }

private:
    void LerPonto(const void *dados);
    void LerLinha(const void *dados);
    void LerArea(const void *dados);
    void LerAreaCircular(const void *dados);
    void LerImagem(const void *dados);

    bool FConverter = false;
    QString FZona = QStringLiteral("22K");
    double FFator = 1.0;
    std::int32_t FElipsoide = 19;
    std::exception_ptr FErro;
};

} // namespace tavru

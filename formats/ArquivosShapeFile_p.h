#pragma once
// Privado (não instalado): a entrada e saída do shapelib pelos seus ganchos (SAHooks), para que
// o tratador de Shapefiles nunca escreva ao lado dos arquivos do usuário durante a leitura e
// grave tudo em memória antes de trocar os arquivos de uma vez.

#include <shapefil.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <map>
#include <string>

namespace tavru::shp {

/// Os arquivos de uma leitura ou gravação do shapelib. Enquanto um `TArquivosShapeFile` está
/// ativo (`TAtivarArquivos`), os ganchos de `Ganchos()` abrem por ele:
/// - um nome guardado em `Memoria` é um arquivo em memória;
/// - na gravação, todo arquivo aberto para escrita vai para `Memoria` (nada toca o disco);
/// - na leitura, nada é escrito nem apagado no disco; um ".shx" que falta é refeito do ".shp" em
///   memória (ver `RefazerShx`);
/// - as mensagens de erro do shapelib ficam em `Erros`.
class TArquivosShapeFile
{
public:
    explicit TArquivosShapeFile(bool gravacao) : Gravacao(gravacao) {}

    /// Os ganchos que abrem pelo contexto ativo.
    SAHooks *Ganchos() { return &FGanchos; }

    const bool Gravacao;
    std::map<std::string, QByteArray> Memoria;
    QStringList Erros;
    /// Quantos ".shx" foram refeitos em memória.
    int ShxRefeitos = 0;

private:
    SAHooks FGanchos = CriarGanchos();
    static SAHooks CriarGanchos();
};

/// Ativa um `TArquivosShapeFile` para os ganchos da linha de execução corrente enquanto vive.
class TAtivarArquivos
{
public:
    explicit TAtivarArquivos(TArquivosShapeFile &arquivos);
    ~TAtivarArquivos();
    TAtivarArquivos(const TAtivarArquivos &) = delete;
    TAtivarArquivos &operator=(const TAtivarArquivos &) = delete;

private:
    TArquivosShapeFile *FAnterior;
};

/// Refaz o índice ".shx" de um ".shp": o cabeçalho de 100 bytes do ".shp" com o tamanho trocado e
/// uma entrada (posição, tamanho) por registro, percorrendo os cabeçalhos dos registros. Um
/// registro cujo tamanho passa do fim do arquivo entra (e o shapelib o acusará como corrompido) e
/// termina a busca. Devolve vazio quando o ".shp" não se abre ou tem menos de 100 bytes.
QByteArray RefazerShx(const QString &nomeShp);

/// O nome que o shapelib recebe para um caminho do sistema (bytes locais do sistema de arquivos).
std::string NomeParaShapelib(const QString &caminho);

} // namespace tavru::shp

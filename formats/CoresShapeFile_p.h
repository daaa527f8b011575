#pragma once
// Privado (não instalado): o arquivo de cores ".cor" ao lado de um Shapefile.

#include <tavru/platform/TBrush.h>
#include <tavru/platform/TColor.h>

#include <QByteArray>
#include <QString>
#include <map>
#include <optional>

namespace tavru {
class TBrush;
class TGISObjeto;
class TInformacoes;
} // namespace tavru

namespace tavru::shp {

/// As cores que uma seção do ".cor" dá (cada uma opcional).
struct TCores
{
    std::optional<TColor> Caneta;
    std::optional<TColor> Pincel;
    std::optional<TBrushStyle> EstiloPincel;

    /// Põe por cima as cores que `outras` dá.
    void Sobrepor(const TCores &outras);
};

/// O ".cor": um texto UTF-8 de linhas "Chave=Valor" (ver o README). Antes da primeira seção, as
/// cores de todos os objetos (`Caneta`, `Pincel`, `EstiloPincel`) e `Campo`, o atributo das
/// seções `[Valor ...]`; depois, seções `[Registro N]` (N = número do registro, 1 o primeiro) e
/// `[Valor TEXTO]` (os registros cujo atributo `Campo` vale TEXTO, aparado) com as cores que
/// mudam. Vale o registro, depois o valor, depois o geral. Cores "#RRGGBB" ou "nenhuma" (-1);
/// estilo do pincel de 0 (sólido) a 7 (cruz diagonal). Linhas vazias e começadas por ";" ou "#"
/// são comentários; o que não se entende é pulado.
class TCoresShapeFile
{
public:
    /// Lê o arquivo. \throws EFilerError arquivo que não se lê ou com mais de 16 MB.
    void Ler(const QString &nome);
    /// O texto do arquivo.
    QByteArray Texto() const;

    /// As cores do registro `registro` com as informações `informacoes`.
    TCores Do(int registro, const TInformacoes &informacoes) const;
    /// Aplica as cores ao objeto: caneta à caneta; pincel e estilo ao pincel das áreas (e dos
    /// corredores e áreas circulares); nos pontos, o pincel é a cor de preenchimento (`AtribuirCor`).
    static void Aplicar(const TCores &cores, TGISObjeto &objeto);
    /// As cores de um objeto, como `Aplicar` as poria.
    static TCores DoObjeto(const TGISObjeto &objeto);

    TCores Geral;
    QString Campo;
    std::map<int, TCores> PorRegistro;
    std::map<QString, TCores> PorValor;
};

} // namespace tavru::shp

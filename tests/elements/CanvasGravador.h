#pragma once
// Apoio dos testes dos elementos: um canvas que anota as chamadas de desenho (e as repassa ao de
// verdade), uma projeção de um pixel por segundo de arco, diálogos roteirizados e linhas prontas.

#include <tavru/core/TGISPosicaoList.h>
#include <tavru/core/TGISProjecaoMercator.h>
#include <tavru/platform/TCanvas.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <QStringList>
#include <ostream>
#include <vector>

namespace tavru {
/// A caneta e o pincel nas mensagens de falha.
inline void PrintTo(const TPen &c, std::ostream *os) { *os << "{" << c.Color << ", " << c.Width << ", " << int(c.Style) << "}"; }
inline void PrintTo(const TBrush &p, std::ostream *os) { *os << "{" << p.Color << ", " << int(p.Style) << "}"; }
} // namespace tavru

namespace tavru::teste {

/// Uma chamada de desenho: o nome, os pontos (ou os cantos), o texto e o estado do canvas nela.
struct TChamada
{
    QString Nome;
    std::vector<TPoint> Pontos;
    QString Texto;
    TPen Caneta;
    TBrush Pincel;
    TFont Fonte;
    unsigned Alinhamento = 0;
};

/// Canvas que anota cada chamada de desenho.
class TCanvasGravador : public TCanvas
{
public:
    using TCanvas::TCanvas;
    std::vector<TChamada> Chamadas;

    void MoveTo(int x, int y) override { Anotar("MoveTo", {{x, y}}), TCanvas::MoveTo(x, y); }
    void LineTo(int x, int y) override { Anotar("LineTo", {{x, y}}), TCanvas::LineTo(x, y); }
    void Polyline(const TPoint *p, int n) override { Anotar("Polyline", {p, p + n}), TCanvas::Polyline(p, n); }
    void Polygon(const TPoint *p, int n) override { Anotar("Polygon", {p, p + n}), TCanvas::Polygon(p, n); }
    void Ellipse(int a, int b, int c, int d) override { Anotar("Ellipse", {{a, b}, {c, d}}), TCanvas::Ellipse(a, b, c, d); }
    void Rectangle(int a, int b, int c, int d) override
    {
        Anotar("Rectangle", {{a, b}, {c, d}}), TCanvas::Rectangle(a, b, c, d);
    }
    void TextOut(int x, int y, const QString &t) override { Anotar("TextOut", {{x, y}}, t), TCanvas::TextOut(x, y, t); }
    void TextRect(const TRect &r, int x, int y, const QString &t) override
    {
        Anotar("TextRect", {r.TopLeft(), r.BottomRight(), {x, y}}, t), TCanvas::TextRect(r, x, y, t);
    }

    QStringList Nomes() const
    {
        QStringList nomes;
        for (const TChamada &c : Chamadas)
            nomes << c.Nome;
        return nomes;
    }
    /// As chamadas em texto: "Nome x,y x,y" separadas por "; ".
    QString Resumo() const
    {
        QStringList linhas;
        for (const TChamada &c : Chamadas) {
            linhas << c.Nome;
            for (const TPoint &p : c.Pontos)
                linhas.last() += QStringLiteral(" %1,%2").arg(p.X).arg(p.Y);
        }
        return linhas.join("; ");
    }

private:
    void Anotar(const char *nome, std::vector<TPoint> pontos, const QString &texto = QString())
    {
        Chamadas.push_back({QString::fromLatin1(nome), std::move(pontos), texto, Pen(), Brush(), Font(), TextAlign()});
    }
};

/// Um pixel por segundo de arco no zoom dado: a tela (0, 0)-(1000, 1000) mostra o mundo
/// (-500, -500)-(500, 500), com o centro (0, 0) no pixel (500, 500) e a latitude para cima.
struct TProjecaoUmPorUm : TGISProjecaoMercator
{
    explicit TProjecaoUmPorUm(double zoom = 1.0)
    {
        DoAtribuirAreaTela(TRect(0, 0, 1000, 1000));
        DoAtribuirAreaMundo(GISRet(-500, -500, 500, 500));
        AtribuirZoom(zoom);
    }
};

/// Instala diálogos roteirizados com as respostas dadas enquanto vive (fila vazia: cancelar).
class TRoteiro
{
public:
    explicit TRoteiro(std::initializer_list<const char *> respostas) : FDialogos(new TDialogosRoteirizados)
    {
        for (const char *r : respostas)
            FDialogos->Textos.push_back(QString::fromUtf8(r));
        FAnterior = TrocarDialogos(std::unique_ptr<TProvedorDeDialogos>(FDialogos));
    }
    ~TRoteiro() { TrocarDialogos(std::move(FAnterior)); }
    /// As perguntas feitas até agora.
    QStringList Perguntas() const { return FDialogos->Perguntas; }

private:
    TDialogosRoteirizados *FDialogos;
    std::unique_ptr<TProvedorDeDialogos> FAnterior;
};

/// Acrescenta uma sequência com os pontos absolutos dados e refaz os limites.
template <typename TLinha>
void Preencher(TLinha &linha, const std::vector<TGISPosicao> &pontos)
{
    linha.Pontos().Add(new TGISPosicaoList);
    const int lista = linha.Pontos().Count() - 1;
    for (const TGISPosicao &p : pontos)
        linha.InserirPonto(lista, linha.Pontos().Items(lista)->Count(), p);
    linha.CalcularLimites();
}

} // namespace tavru::teste

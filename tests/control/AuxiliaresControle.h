#pragma once
// Peças dos testes do controle: um objeto retangular que anota os desenhos, um canvas que anota
// os textos, uma ferramenta que anota o que recebe e um controle que conta os desenhos.

#include <tavru/control/IGISMouseEvent.h>
#include <tavru/control/TGis.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>

#include <QImage>
#include <QRegularExpression>
#include <QStringList>

#include <random>

namespace tavru::teste {

/// Objeto de extensão fixa desenhado como o retângulo dela (com `FCor`, se tem), que anota cada
/// desenho ("sel:" na frente do desenho de selecionado) num diário.
class TObjetoRet : public TGISObjeto
{
public:
    static const TClasseObjeto Descritor;
    explicit TObjetoRet(const TGISRet &area = GISRet(0, 0, 0, 0), QStringList *diario = nullptr,
                        const QString &nome = QString())
        : FArea(area), FDiario(diario), FNome(nome)
    {
        if (!nome.isEmpty())
            Informacoes().AtribuirCampo(QStringLiteral("Nome"), nome);
    }
    const TClasseObjeto &Classe() const override { return Descritor; }
    void AtribuirCor(TColor cor) override { FCor = cor; }
    TColor ObterCor() const override { return FCor; }
    bool ConfiguracaoPadrao(const TGISProjecao &, const TPoint &) override { return true; }
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override
    {
        if (FDiario)
            FDiario->append((selecionado ? QStringLiteral("sel:") : QString()) + FNome);
        if (FCor != clNone && !selecionado)
            canvas.Brush().Color = FCor;
        const TRect r = ConcertaRect(projecao.MundoParaTelaRet(FArea));
        canvas.Rectangle(r.Left, r.Top, r.Right + 1, r.Bottom + 1);
    }
    bool Pertence(const TGISProjecao &projecao, const TPoint &ponto) override
    {
        return FAcertaTudo || (FAcertavel && PertenceRect(ponto, ConcertaRect(projecao.MundoParaTelaRet(FArea))));
    }
    TGISRet Area() const override
    {
        if (FFalhar)
            throw EInvalidOperation(QStringLiteral("sem extensão"));
        return FArea;
    }

    TGISRet FArea;
    TColor FCor = clNone;
    bool FAcertavel = true;
    bool FAcertaTudo = false; ///< `Pertence` sempre verdadeiro (para ver a margem da consulta)
    bool FFalhar = false;

private:
    QStringList *FDiario;
    QString FNome;
};

/// Um `TObjetoRet` novo no fim da camada, com o rótulo visível ou não.
inline TObjetoRet *Incluir(TGISCamada &c, const TGISRet &area = GISRet(0, 0, 0, 0), const QString &nome = QString(),
                           bool rotulo = false, QStringList *diario = nullptr)
{
    auto *o = new TObjetoRet(area, diario, nome);
    o->AtribuirRotuloVisivel(rotulo);
    c.Objetos().Add(o);
    return o;
}

using TSorteio = std::mt19937;

inline int Entre(TSorteio &s, int a, int b)
{
    return std::uniform_int_distribution<int>(a, b)(s);
}

/// Cor, nome "O`n`" e rótulo visível (com chance de 1 em `rotulo`) sorteados para `objeto`.
inline TGISObjeto *Sortear(TSorteio &s, TGISObjeto *objeto, int n, int rotulo)
{
    objeto->AtribuirCor(RGB(Entre(s, 0, 255), Entre(s, 0, 255), Entre(s, 0, 255)));
    objeto->Informacoes().AtribuirCampo(QStringLiteral("Nome"), QStringLiteral("O%1").arg(n));
    objeto->AtribuirRotuloVisivel(Entre(s, 0, rotulo - 1) == 0);
    return objeto;
}

/// Canvas que pinta de verdade e anota cada `TextOut` como "texto@x,y".
class TCanvasGravador : public TCanvas
{
public:
    using TCanvas::TCanvas;
    void TextOut(int x, int y, const QString &texto) override
    {
        Textos.append(QStringLiteral("%1@%2,%3").arg(texto).arg(x).arg(y));
        TCanvas::TextOut(x, y, texto);
    }
    QStringList Textos;
};

/// Os rótulos que cada camada do mapa escreve, na ordem, desenhando-as uma a uma (`DesenharCamada`)
/// numa imagem do tamanho do controle.
inline QStringList RotulosCamadaACamada(TGis &gis)
{
    QImage imagem(gis.width(), gis.height(), QImage::Format_ARGB32_Premultiplied);
    TCanvasGravador canvas(&imagem);
    for (int c = 0; c < gis.Camadas().Count(); ++c)
        gis.DesenharCamada(*gis.Camadas().Items(c), canvas, *gis.Projecao());
    canvas.AtribuirImagem(nullptr);
    return canvas.Textos;
}

/// Ferramenta que anota cada chamada ("down 10,20 b0 s8", "click 3,4", "paint", ...).
class TFerramentaGravadora : public IGISMouseEvent
{
public:
    void GISMouseClick(const TPoint &p) override { Anotar("click", p); }
    void GISMouseDblClick(const TPoint &p) override { Anotar("dblclick", p); }
    void GISMouseMove(const TPoint &p) override { Anotar("move", p); }
    void GISMouseUp(const TPoint &p, TMouseButton b, TShiftState s) override { Anotar("up", p, b, s); }
    void GISMouseDown(const TPoint &p, TMouseButton b, TShiftState s) override { Anotar("down", p, b, s); }
    void GISPaint() override { Chamadas.append("paint"); }
    void GISSelecionou(TGISObjeto *o) override { Selecionados.append(o); }
    void GisMouseLeave() override { Chamadas.append("leave"); }
    /// As chamadas sem as pinturas (que acompanham todo redesenho).
    QStringList SemPinturas() const { return QStringList(Chamadas).filter(QRegularExpression("^(?!paint$)")); }

    QStringList Chamadas;
    QList<TGISObjeto *> Selecionados;

private:
    void Anotar(const char *o, const TPoint &p, int b = -1, int s = 0)
    {
        const QString t = QStringLiteral("%1 %2,%3").arg(o).arg(p.X).arg(p.Y);
        Chamadas.append(b < 0 ? t : t + QStringLiteral(" b%1 s%2").arg(b).arg(s));
    }
};

/// Controle que conta os desenhos completos.
class TGisContador : public TGis
{
public:
    void Desenhar() override { ++Desenhos, TGis::Desenhar(); }
    int Desenhos = 0;
};

/// Uma camada nova no fim da lista do controle.
inline TGISCamada &NovaCamada(TGis &gis, const QString &nome, TGISTipoCamada tipo = gtcInterrogavel)
{
    auto *camada = new TGISCamada(nome);
    camada->AtribuirTipo(tipo);
    gis.Camadas().Add(camada);
    return *camada;
}

/// Retângulo do mundo de (lat1, lon1) a (lat2, lon2) em graus.
inline TGISRet Graus(double lat1, double lon1, double lat2, double lon2)
{
    return GISRet(std::int32_t(lat1 * 3600), std::int32_t(lon1 * 3600), std::int32_t(lat2 * 3600),
                  std::int32_t(lon2 * 3600));
}

} // namespace tavru::teste

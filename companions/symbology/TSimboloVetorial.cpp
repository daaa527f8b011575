#include <tavru/companions/symbology/TSimboloVetorial.h>

#include <tavru/platform/TCanvas.h>

#include <algorithm>
#include <cmath>

namespace tavru {

namespace {
// Leva pontos da caixa unitária para a tela: escala, giro anti-horário e y para baixo.
struct TTransformacao
{
    double Cx, Cy, Escala, Cos, Sen;

    TPoint Aplicar(const QPointF &p) const
    {
        const double x = p.x() * Cos - p.y() * Sen;
        const double y = p.x() * Sen + p.y() * Cos;
        return TPoint(static_cast<int>(std::lround(Cx + x * Escala)), static_cast<int>(std::lround(Cy - y * Escala)));
    }
};
} // namespace

int TSimboloVetorial::AdicionarFigura(const TFiguraVetorial &figura)
{
    FFiguras.push_back(figura);
    return ObterTotal() - 1;
}

void TSimboloVetorial::DesenharRotacionado(TCanvas &canvas, const TRect &r, double angulo) const
{
    const TTransformacao t{(r.Left + r.Right) / 2.0, (r.Top + r.Bottom) / 2.0,
                           std::min(std::abs(r.Width()), std::abs(r.Height())) / 2.0,
                           std::cos(angulo), std::sin(angulo)};
    std::vector<TPoint> tela;
    for (const TFiguraVetorial &figura : FFiguras) {
        if (figura.Pontos.empty())
            continue;
        const TColor canetaAntes = canvas.Pen().Color;
        const TColor pincelAntes = canvas.Brush().Color;
        if (figura.Cor != clNone) {
            canvas.Pen().Color = figura.Cor;
            canvas.Brush().Color = figura.Cor;
        }
        tela.clear();
        for (const QPointF &p : figura.Pontos)
            tela.push_back(t.Aplicar(p));
        const int n = static_cast<int>(tela.size());
        switch (figura.Tipo) {
        case TFiguraVetorial::fvPoligono:
            canvas.Polygon(tela.data(), n);
            break;
        case TFiguraVetorial::fvLinha:
            canvas.Polyline(tela.data(), n);
            break;
        case TFiguraVetorial::fvPonto: {
            const int raio = std::max(1, static_cast<int>(std::lround(figura.Raio * t.Escala)));
            for (const TPoint &p : tela)
                canvas.Ellipse(p.X - raio, p.Y - raio, p.X + raio + 1, p.Y + raio + 1);
            break;
        }
        }
        canvas.Pen().Color = canetaAntes;
        canvas.Brush().Color = pincelAntes;
    }
}

} // namespace tavru

#include <tavru/control/TGISBarraDeEscala.h>

#include <tavru/companions/geodesy/Distancia.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/TCanvas.h>

#include <QLocale>
#include <algorithm>
#include <cmath>
#include <exception>

namespace tavru {

namespace {

/// O maior valor redondo (1, 2 ou 5 vezes uma potência de 10) que não passa de `limite` (> 0).
double Redondo(double limite)
{
    const double potencia = std::pow(10.0, std::floor(std::log10(limite)));
    for (double m : {5.0, 2.0, 1.0})
        if (m * potencia <= limite)
            return m * potencia;
    return potencia;
}

/// Latitude de 89° em segundos de arco: uma régua mais perto do polo (ou fora do mundo) não tem
/// sentido numa projeção de latitude linear.
constexpr std::int64_t LatitudeMaxima = 89 * 3600;
/// Meia volta de longitude: passando dela a geodésica volta pelo outro lado e a distância deixa de
/// crescer com os pixels.
constexpr std::int64_t LongitudeMaxima = 180 * 3600;

} // namespace

TGISBarraDeEscala::TRegua TGISBarraDeEscala::Regua(const TGISProjecao &projecao, const TRect &tela, int y,
                                                      double metros)
{
    TRegua regua;
    regua.X = tela.Left + Margem;
    regua.Y = y;
    int largura = std::min(LarguraMaxima, tela.Right - regua.X - Margem);
    if (largura < 10 || y < tela.Top)
        return regua;
    try {
        const TGISPosicao inicio = projecao.TelaParaMundo(TPoint(regua.X, y));
        if (std::llabs(std::int64_t(inicio.Latitude)) > LatitudeMaxima)
            return regua;
        // Encolhe a régua até que ela não passe de meia volta de longitude.
        auto fim = [&](int pixels) { return projecao.TelaParaMundo(TPoint(regua.X + pixels, y)); };
        while (largura >= 10 && std::llabs(std::int64_t(fim(largura).Longitude) - inicio.Longitude) > LongitudeMaxima)
            largura /= 2;
        if (largura < 10)
            return regua;
        auto medida = [&](int pixels) { return Distancia(inicio, fim(pixels)) * MetrosPorMilhaNautica / metros; };
        const double total = medida(largura);
        if (!(total > 0.0) || !std::isfinite(total))
            return regua;
        regua.Valor = Redondo(total);
        // O menor número de pixels cuja distância chega ao valor redondo (a distância cresce com
        // os pixels): a régua fica a menos de um pixel do comprimento certo.
        int baixo = 0;
        int alto = largura;
        while (alto - baixo > 1) {
            const int meio = (baixo + alto) / 2;
            (medida(meio) < regua.Valor ? baixo : alto) = meio;
        }
        const double faltaAlto = medida(alto) - regua.Valor;
        const double sobraBaixo = regua.Valor - medida(baixo);
        regua.Pixels = faltaAlto <= sobraBaixo || baixo == 0 ? alto : baixo;
    } catch (const std::exception &) {
        regua.Pixels = 0; // uma projeção sem escala (tela vazia) não tem régua
    }
    return regua;
}

TGISBarraDeEscala::TRegua TGISBarraDeEscala::ReguaKm(const TGISProjecao &projecao, const TRect &tela)
{
    return Regua(projecao, tela, tela.Bottom - Margem - Entrelinha, MetrosPorKm);
}

TGISBarraDeEscala::TRegua TGISBarraDeEscala::ReguaMilhas(const TGISProjecao &projecao, const TRect &tela)
{
    return Regua(projecao, tela, tela.Bottom - Margem, MetrosPorMilhaNautica);
}

void TGISBarraDeEscala::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, const TRect &tela)
{
    const TRegua km = ReguaKm(projecao, tela);
    const TRegua mn = ReguaMilhas(projecao, tela);
    if (km.Pixels == 0 || mn.Pixels == 0)
        return;
    const QLocale local(QLocale::Portuguese, QLocale::Brazil);
    auto texto = [&](const TRegua &r, const char *unidade) {
        return local.toString(r.Valor, 'g', 6) + QLatin1Char(' ') + QLatin1String(unidade);
    };
    const QString textoKm = texto(km, "km");
    const QString textoMn = texto(mn, "MN");
    const int direita = std::max(km.X + km.Pixels, mn.X + mn.Pixels) + 6
        + std::max(canvas.TextWidth(textoKm), canvas.TextWidth(textoMn));

    canvas.Pen().Style = psSolid;
    canvas.Pen().Color = clBlack;
    canvas.Pen().Width = 1;
    canvas.Brush().Style = bsSolid;
    canvas.Brush().Color = clWhite;
    canvas.Rectangle(km.X - 6, km.Y - 14, direita + 6, mn.Y + 6);
    canvas.Font().Assign(TFont());
    canvas.Font().SetSize(8);
    canvas.Font().Color = clBlack;
    const unsigned alinhamento = canvas.SetTextAlign(TA_LEFT | TA_BOTTOM);
    const int xTexto = std::max(km.X + km.Pixels, mn.X + mn.Pixels) + 6;
    auto regua = [&](const TRegua &r, const QString &t) {
        canvas.Pen().Width = 2;
        canvas.MoveTo(r.X, r.Y);
        canvas.LineTo(r.X + r.Pixels, r.Y);
        canvas.Pen().Width = 1;
        for (int x : {r.X, r.X + r.Pixels}) {
            canvas.MoveTo(x, r.Y - 5);
            canvas.LineTo(x, r.Y + 1);
        }
        canvas.Brush().Style = bsClear;
        canvas.TextOut(xTexto, r.Y + 4, t);
    };
    regua(km, textoKm);
    regua(mn, textoMn);
    canvas.SetTextAlign(alinhamento);
}

} // namespace tavru

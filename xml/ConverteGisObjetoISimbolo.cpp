#include <tavru/xml/ConverteGisObjetoISimbolo.h>

#include <tavru/companions/geodesy/Distancia.h>
#include <tavru/companions/geodesy/Rumo.h>
#include <tavru/companions/symbology/TSimboloFonte.h>
#include <tavru/companions/symbology/TSimboloGrafico.h>
#include <tavru/companions/symbology/TSimboloVetorial.h>
#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISComposto.h>
#include <tavru/elements/GISElipse.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/elements/GISTexto.h>
#include <tavru/platform/Exception.h>

namespace tavru {

namespace {

constexpr double Pi = 3.14159265358979323846;

double DegToRad(double graus)
{
    return graus * Pi / 180.0;
}

double RadToDeg(double radianos)
{
    return radianos * 180.0 / Pi;
}

// A posição (lat, lon) do mundo como o ponto (lon, -lat) do símbolo.
TPoint PontoDoSimbolo(const TGISPosicao &p)
{
    return TPoint(p.Longitude, Saturar32(-std::int64_t(p.Latitude)));
}

std::unique_ptr<TElementoGrafico> SetorDaAreaCircular(const TGISAreaCircular &area)
{
    const auto *elipse = dynamic_cast<const TGISElipse *>(&area);
    std::unique_ptr<TSetor> setor = elipse ? std::make_unique<TElipse>() : std::make_unique<TSetor>();
    const double rumo = GrauToMarinha(RadToDeg(area.Orientacao()));
    setor->AtribuirAnguloInicial(DegToRad(MarinhaToGrau(rumo + area.AzimuteInicial())));
    setor->AtribuirAnguloFinal(DegToRad(MarinhaToGrau(rumo + area.AzimuteFinal())));
    setor->AtribuirRaioExterno(area.RaioMaior());
    setor->AtribuirRaioInterno(area.RaioMenor());
    setor->Caneta().Style = area.Caneta().Style; // a cor da caneta não vai
    setor->Pincel().Style = area.Pincel().Style;
    setor->Pincel().Color = area.Pincel().Color;
    setor->AtribuirCentro(PontoDoSimbolo(area.Posicao()));
    if (elipse) {
        setor->AtribuirRaioExterno(elipse->RaioMaiorY());
        setor->AtribuirRaioInterno(elipse->RaioMenorY());
    }
    return setor;
}

void AcrescentarConversao(const TGISObjeto &objeto, TListaElementosGraficos &elementos)
{
    if (const auto *ponto = dynamic_cast<const TGISPonto *>(&objeto)) {
        if (ponto->Forma() < gisFonte)
            elementos.Add(new TPonto(PontoDoSimbolo(ponto->Posicao()), ponto->ObterCor()));
    } else if (const auto *texto = dynamic_cast<const TGISTexto *>(&objeto)) {
        auto t = std::make_unique<TTexto>();
        t->AtribuirFonte(texto->Fonte());
        t->AtribuirTexto(texto->Texto());
        t->AtribuirAlinhamentoHorizontal(texto->AlinhamentoHorizontal());
        t->AtribuirAlinhamentoVertical(texto->AlinhamentoVertical());
        t->AtribuirGiroAdicional(static_cast<std::int16_t>(texto->GiroAdicional()));
        t->AtribuirPosicao(PontoDoSimbolo(texto->Posicao()));
        elementos.Add(t.release());
    } else if (const auto *area = dynamic_cast<const TGISAreaCircular *>(&objeto)) {
        elementos.Add(SetorDaAreaCircular(*area).release());
    } else if (const auto *linha = dynamic_cast<const TGISLinha *>(&objeto)) {
        const auto *preenchida = dynamic_cast<const TGISArea *>(linha);
        for (int parte = 0; parte < linha->Pontos().Count(); ++parte) {
            auto p = std::make_unique<TPoligono>();
            p->Caneta().Color = linha->Caneta().Color;
            p->Caneta().Style = linha->Caneta().Style;
            if (preenchida) {
                p->Pincel().Color = preenchida->Pincel().Color;
                p->Pincel().Style = preenchida->Pincel().Style;
            }
            p->AtribuirPreenchido(preenchida != nullptr);
            const TGISPosicaoList *posicoes = linha->Pontos().Items(parte);
            const int total = posicoes ? posicoes->Count() : 0;
            for (int i = 0; i < total; ++i)
                p->ObterListaPosicao().Add(PontoDoSimbolo(linha->ObterPonto(parte, i)));
            elementos.Add(p.release());
        }
    }
    // Compostos, trajetos e o resto: nada.
}

// A conversão de pontos do símbolo para o mundo (passos 2 a 4 da conversão vetorial).
struct TEscalaSimbolo
{
    double K = 1.0;
    TGISPosicao C;
    TPoint c;

    TEscalaSimbolo(const TRect &a, const TGISRet &r)
    {
        const double dLon = double(r.Pos2.Longitude) - r.Pos1.Longitude;
        const double dLat = double(r.Pos2.Latitude) - r.Pos1.Latitude;
        const double altura = double(a.Bottom) - a.Top;
        const double largura = double(a.Right) - a.Left;
        const double ra = altura == 0.0 ? dLon : dLon / altura;
        const double rb = largura == 0.0 ? dLat : dLat / largura;
        K = ra < rb ? ra : rb;
        C = Centro(r);
        c = Centro(a);
    }

    TGISPosicao Mundo(const TPoint &p) const
    {
        return GISPosicao(Arredondar(-(double(p.Y) - c.Y) * K + C.Latitude),
                          Arredondar((double(p.X) - c.X) * K + C.Longitude));
    }
};

// Só a cor e o estilo passam (a largura da caneta não).
void CopiarCorEEstilo(const TPen &caneta, TPen &destino)
{
    destino.Style = caneta.Style;
    destino.Color = caneta.Color;
}

std::unique_ptr<TGISObjeto> ObjetoDoSetor(const TSetor &setor, const TEscalaSimbolo &escala, const TGISRet &r)
{
    const auto *elipse = dynamic_cast<const TElipse *>(&setor);
    std::unique_ptr<TGISAreaCircular> area =
        elipse ? std::make_unique<TGISElipse>() : std::make_unique<TGISAreaCircular>();
    area->AtribuirOrientacao(DegToRad(MarinhaToGrau(0)));
    const std::int32_t meio = Centro(r).Longitude;
    const double metade = Distancia(GISPosicao(r.Pos1.Latitude, meio), GISPosicao(r.Pos2.Latitude, meio)) / 2.0;
    if (setor.RaioExterno() == 0.0)
        throw EZeroDivide(QStringLiteral("O setor do símbolo tem raio externo zero: não há como escalá-lo ao retângulo."));
    const double f = metade / setor.RaioExterno();
    area->AtribuirPosicao(escala.Mundo(setor.Centro()));
    area->AtribuirAzimuteInicial(GrauToMarinha(RadToDeg(setor.AnguloInicial())));
    area->AtribuirAzimuteFinal(GrauToMarinha(RadToDeg(setor.AnguloFinal())));
    area->AtribuirRaioMaior(setor.RaioExterno() * f);
    area->AtribuirRaioMenor(setor.RaioInterno() * f);
    area->Pincel().Style = setor.Pincel().Style;
    area->Pincel().Color = setor.Pincel().Color;
    CopiarCorEEstilo(setor.Caneta(), area->Caneta());
    if (elipse) {
        auto *e = static_cast<TGISElipse *>(area.get());
        e->AtribuirRaioMaiorY(setor.RaioExterno());
        e->AtribuirRaioMenorY(setor.RaioInterno());
    }
    return area;
}

std::unique_ptr<TGISObjeto> ObjetoDoElemento(const TElementoGrafico &elemento, const TEscalaSimbolo &escala,
                                             const TGISRet &r)
{
    if (const auto *ponto = dynamic_cast<const TPonto *>(&elemento)) {
        auto p = std::make_unique<TGISPonto>();
        p->AtribuirCor(ponto->Cor());
        p->AtribuirPosicao(escala.Mundo(ponto->Posicao()));
        p->AtribuirForma(gisCruz);
        return p;
    }
    if (const auto *texto = dynamic_cast<const TTexto *>(&elemento)) {
        auto t = std::make_unique<TGISTexto>();
        t->AtribuirPosicao(escala.Mundo(texto->Posicao()));
        t->AtribuirFonte(texto->Fonte());
        t->AtribuirTexto(texto->Texto());
        t->AtribuirAlinhamentoHorizontal(texto->AlinhamentoHorizontal());
        t->AtribuirAlinhamentoVertical(texto->AlinhamentoVertical());
        t->AtribuirGiroAdicional(texto->GiroAdicional());
        return t;
    }
    if (const auto *setor = dynamic_cast<const TSetor *>(&elemento))
        return ObjetoDoSetor(*setor, escala, r);
    if (const auto *poligono = dynamic_cast<const TPoligono *>(&elemento)) {
        std::unique_ptr<TGISLinha> linha;
        if (poligono->Preenchido()) {
            auto area = std::make_unique<TGISArea>();
            area->Pincel().Color = poligono->Pincel().Color;
            area->Pincel().Style = poligono->Pincel().Style;
            linha = std::move(area);
        } else {
            linha = std::make_unique<TGISLinha>();
        }
        CopiarCorEEstilo(poligono->Caneta(), linha->Caneta());
        auto *parte = new TGISPosicaoList;
        linha->Pontos().Add(parte);
        parte->Reservar(poligono->ObterListaPosicao().Count());
        for (const TPoint &p : poligono->ObterListaPosicao())
            parte->Add(escala.Mundo(p));
        linha->CalcularLimites();
        return linha;
    }
    return nullptr;
}

void ConversaoVetorial(const TSimboloVetorial *simbolo, TGISObjetoList &lista, const TGISRet &r)
{
    lista.Clear();
    if (!simbolo || simbolo->Elementos().Count() == 0)
        return;
    const TEscalaSimbolo escala(simbolo->Elementos().ObterArea(), r);
    for (int i = 0; i < simbolo->Elementos().Count(); ++i) {
        const TElementoGrafico *e = simbolo->Elementos().Items(i);
        if (!e)
            continue;
        if (std::unique_ptr<TGISObjeto> objeto = ObjetoDoElemento(*e, escala, r))
            lista.Add(objeto.release());
    }
}

std::unique_ptr<TGISObjeto> PontoDeFonte(const TSimboloFonte &simbolo)
{
    auto ponto = std::make_unique<TGISPonto>();
    ponto->AtribuirFonte(simbolo.Fonte());
    ponto->AtribuirLetra(simbolo.Letra());
    ponto->AtribuirForma(gisFonte);
    return ponto;
}

std::unique_ptr<TGISObjeto> ImagemDoGrafico(const TSimboloGrafico &simbolo)
{
    auto imagem = std::make_unique<TGISImagem>();
    imagem->LerArquivo(simbolo.NomeArquivo());
    return imagem;
}

} // namespace

std::unique_ptr<ISimbolo> GisObjetoToSimbolo(const TGISObjeto &objeto)
{
    if (const auto *imagem = dynamic_cast<const TGISImagem *>(&objeto)) {
        auto grafico = std::make_unique<TSimboloGrafico>();
        grafico->LerArquivo(imagem->NomeArquivoImagem());
        return grafico;
    }
    if (const auto *ponto = dynamic_cast<const TGISPonto *>(&objeto); ponto && ponto->Forma() == gisFonte) {
        auto fonte = std::make_unique<TSimboloFonte>();
        fonte->AtribuirFonte(ponto->Fonte());
        fonte->AtribuirLetra(ponto->Letra());
        return fonte;
    }
    auto vetorial = std::make_unique<TSimboloVetorial>();
    AcrescentarConversao(objeto, vetorial->Elementos());
    return vetorial;
}

std::unique_ptr<TGISObjeto> SimboloToGisObjeto(const ISimbolo *simbolo, const TGISRet &retangulo)
{
    if (const auto *fonte = dynamic_cast<const TSimboloFonte *>(simbolo))
        return PontoDeFonte(*fonte);
    if (const auto *grafico = dynamic_cast<const TSimboloGrafico *>(simbolo))
        return ImagemDoGrafico(*grafico);
    const auto *vetorial = dynamic_cast<const TSimboloVetorial *>(simbolo);
    if (!vetorial)
        return nullptr;
    TGISObjetoList temporaria;
    ConversaoVetorial(vetorial, temporaria, retangulo);
    if (temporaria.Count() == 0)
        return nullptr;
    if (temporaria.Count() == 1)
        return std::unique_ptr<TGISObjeto>(temporaria.Extract(temporaria.First()));
    auto composto = std::make_unique<TGISComposto>();
    while (temporaria.Count() > 0)
        composto->Objetos().Add(temporaria.Extract(temporaria.First()));
    return composto;
}

void SimboloToGisObjetoList(const ISimbolo *simbolo, TGISObjetoList &lista, const TGISRet &retangulo)
{
    if (const auto *vetorial = dynamic_cast<const TSimboloVetorial *>(simbolo)) {
        ConversaoVetorial(vetorial, lista, retangulo);
    } else if (const auto *fonte = dynamic_cast<const TSimboloFonte *>(simbolo)) {
        lista.Add(PontoDeFonte(*fonte).release());
    } else if (const auto *grafico = dynamic_cast<const TSimboloGrafico *>(simbolo)) {
        lista.Add(ImagemDoGrafico(*grafico).release());
    }
}

} // namespace tavru

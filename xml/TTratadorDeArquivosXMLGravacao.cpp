// A gravação dos elementos do documento: de um objeto do mapa para linhas de texto. Cada linha de
// abertura é montada por concatenação, com os valores tal como estão (ver `ESCAPAR_TEXTOS`).

#include <tavru/xml/TTratadorDeArquivosXML.h>

#include <tavru/companions/geodesy/Rumo.h>
#include <tavru/companions/geodesy/TextoGeodesico.h>
#include <tavru/companions/symbology/InformacoesXML.h>
#include <tavru/companions/symbology/Tagsxml.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISAreaComFuros.h>
#include <tavru/elements/GISAreaCircular.h>
#include <tavru/elements/GISComposto.h>
#include <tavru/elements/GISCorredor.h>
#include <tavru/elements/GISElipse.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/elements/GISPontosTrajeto.h>
#include <tavru/elements/GISTexto.h>
#include <tavru/elements/GISTrajeto.h>
#include <tavru/xml/CodificacaoXML_p.h>
#include <tavru/xml/ConfiguracaoXML.h>

namespace tavru {

using namespace xmlp;

namespace {

// Monta uma linha de abertura: `<Nome`, depois ` Atributo="valor"` a cada chamada, e `>`.
class TLinha
{
public:
    explicit TLinha(QLatin1String nome)
    {
        FTexto.reserve(160);
        FTexto += QLatin1Char('<');
        FTexto += nome;
    }
    TLinha &Atributo(QLatin1String nome, const QString &valor)
    {
        Abrir(nome);
        FTexto += valor;
        FTexto += QLatin1Char('"');
        return *this;
    }
    TLinha &Atributo(const char *nomeUtf8, const QString &valor)
    {
        FTexto += QLatin1Char(' ');
        FTexto += QString::fromUtf8(nomeUtf8);
        FTexto += QLatin1String("=\"");
        FTexto += valor;
        FTexto += QLatin1Char('"');
        return *this;
    }
    TLinha &Inteiro(QLatin1String nome, qlonglong valor) { return Atributo(nome, QString::number(valor)); }
    TLinha &Grau(QLatin1String nome, std::int32_t valor, bool ehLatitude)
    {
        Abrir(nome);
        AcrescentarGrau(FTexto, valor, ehLatitude);
        FTexto += QLatin1Char('"');
        return *this;
    }
    // `Cor` e `CorPreenchimento`: a cor em hexadecimal ou, no modo da tabela, o código de cor.
    TLinha &Cor(QLatin1String nome, TColor cor, std::int32_t codigo)
    {
        return USAR_TABELA_DE_SIMBOLOS ? Inteiro(nome, codigo) : Atributo(nome, CorHexadecimal(cor));
    }
    QString Fechar(QLatin1String fim = QLatin1String(">"))
    {
        FTexto += fim;
        return FTexto;
    }

private:
    void Abrir(QLatin1String nome)
    {
        FTexto += QLatin1Char(' ');
        FTexto += nome;
        FTexto += QLatin1String("=\"");
    }
    QString FTexto;
};

void GravarInformacoes(QStringList &linhas, const TInformacoes &informacoes)
{
    linhas.append(ObterXMLStrings(_INFORMACOES_, _INFORMACAO_, _ROTULO_, _VALOR_, informacoes, ESCAPAR_TEXTOS));
}

QString Distancia(double valor)
{
    return DistanciaToStr(valor, true);
}

QString Angulo(double valor)
{
    return AnguloToStr(valor, true);
}

TLinha &Preenchimento(TLinha &linha, const TBrush &pincel, std::int32_t indicePincel)
{
    return linha.Inteiro(QLatin1String("EstiloPreenchimento"), pincel.Style)
        .Cor(QLatin1String("CorPreenchimento"), pincel.Color, indicePincel);
}

} // namespace

void TTratadorDeArquivosXML::GravarLista(QStringList &linhas, const TGISObjetoList &lista)
{
    for (int i = 0; i < lista.Count(); ++i)
        if (const TGISObjeto *objeto = lista.ObterGISObjeto(i))
            GravarObjeto(linhas, *objeto);
}

void TTratadorDeArquivosXML::GravarObjeto(QStringList &linhas, const TGISObjeto &objeto)
{
    const TGISObjeto *o = &objeto;
    if (auto *imagem = dynamic_cast<const TGISImagem *>(o))
        GravarImagem(linhas, *imagem);
    else if (auto *ponto = dynamic_cast<const TGISPonto *>(o))
        GravarPonto(linhas, *ponto);
    else if (auto *elipse = dynamic_cast<const TGISElipse *>(o))
        GravarElipse(linhas, *elipse);
    else if (auto *circular = dynamic_cast<const TGISAreaCircular *>(o))
        GravarAreaCircular(linhas, *circular);
    else if (auto *area = dynamic_cast<const TGISArea *>(o))
        GravarArea(linhas, *area);
    else if (auto *corredor = dynamic_cast<const TGISCorredor *>(o))
        GravarCorredor(linhas, *corredor);
    else if (auto *trajeto = dynamic_cast<const TGISTrajeto *>(o))
        GravarTrajeto(linhas, *trajeto);
    else if (auto *linha = dynamic_cast<const TGISLinha *>(o))
        GravarLinha(linhas, *linha);
    else if (auto *texto = dynamic_cast<const TGISTexto *>(o))
        GravarTexto(linhas, *texto);
    else if (auto *composto = dynamic_cast<const TGISComposto *>(o))
        GravarComposto(linhas, *composto);
}

void TTratadorDeArquivosXML::GravarImagem(QStringList &linhas, const TGISImagem &imagem)
{
    const TGISRet r = imagem.AreaImagem();
    linhas.append(TLinha(QLatin1String("Imagem"))
                      .Atributo(QLatin1String("Arquivo"), TextoLivre(imagem.NomeArquivoImagem()))
                      .Grau(QLatin1String("LatMin"), r.Pos1.Latitude, true)
                      .Grau(QLatin1String("LongMin"), r.Pos1.Longitude, false)
                      .Grau(QLatin1String("LatMax"), r.Pos2.Latitude, true)
                      .Grau(QLatin1String("LongMax"), r.Pos2.Longitude, false)
                      .Atributo(QLatin1String("CorTransparente"), CorHexadecimal(imagem.ObterCor()))
                      .Fechar());
    GravarInformacoes(linhas, imagem.Informacoes());
    linhas.append(QStringLiteral("</Imagem>"));
}

void TTratadorDeArquivosXML::GravarPonto(QStringList &linhas, const TGISPonto &ponto)
{
    const TGISPosicao p = ponto.Posicao();
    const QChar letra = ponto.Letra();
    linhas.append(TLinha(QLatin1String("Ponto"))
                      .Grau(QLatin1String("Latitude"), p.Latitude, true)
                      .Grau(QLatin1String("Longitude"), p.Longitude, false)
                      .Atributo(QLatin1String("Letra"), letra.isNull() ? QString() : TextoLivre(QString(letra)))
                      .Atributo("Símbolo", QString::number(ponto.Simbolo()))
                      .Inteiro(QLatin1String("Forma"), ponto.Forma())
                      .Inteiro(QLatin1String("TamanhoMaximoX"), ponto.TamanhoMaximo().X)
                      .Inteiro(QLatin1String("TamanhoMaximoY"), ponto.TamanhoMaximo().Y)
                      .Inteiro(QLatin1String("TamanhoMinimoX"), ponto.TamanhoMinimo().X)
                      .Inteiro(QLatin1String("TamanhoMinimoY"), ponto.TamanhoMinimo().Y)
                      .Inteiro(QLatin1String("TamanhoNoMundoLatitude"), ponto.TamanhoNoMundo().Latitude)
                      .Inteiro(QLatin1String("TamanhoNoMundoLongitude"), ponto.TamanhoNoMundo().Longitude)
                      .Atributo("Orientação", Angulo(ponto.Orientacao()))
                      .Atributo(QLatin1String("FonteNome"), TextoLivre(ponto.Fonte().Name))
                      .Inteiro(QLatin1String("FonteCharset"), ponto.Fonte().Charset)
                      .Inteiro(QLatin1String("FonteTamanho"), ponto.Fonte().Size())
                      .Cor(QLatin1String("Cor"), ponto.Caneta().Color, ponto.IndiceCor())
                      .Fechar());
    GravarInformacoes(linhas, ponto.Informacoes());
    linhas.append(QStringLiteral("</Ponto>"));
}

void TTratadorDeArquivosXML::GravarTexto(QStringList &linhas, const TGISTexto &texto)
{
    const TGISPosicao p = texto.Posicao();
    linhas.append(TLinha(QLatin1String("Texto"))
                      .Grau(QLatin1String("Latitude"), p.Latitude, true)
                      .Grau(QLatin1String("Longitude"), p.Longitude, false)
                      .Atributo(QLatin1String("Fonte"), TextoLivre(texto.Fonte().Name))
                      .Atributo("Orientação", Angulo(GrauToMarinha(texto.GiroAdicional()) + texto.Orientacao()))
                      .Inteiro(QLatin1String("AlinhamentoVertical"), texto.AlinhamentoVertical())
                      .Inteiro(QLatin1String("AlinhamentoHorizontal"), texto.AlinhamentoHorizontal())
                      .Atributo(QLatin1String("Texto"), TextoLivre(texto.Texto()))
                      .Inteiro(QLatin1String("FonteTamanho"), texto.Fonte().Size())
                      .Fechar(QLatin1String("> ")));
    GravarInformacoes(linhas, texto.Informacoes());
    linhas.append(QStringLiteral("</Texto>"));
}

void TTratadorDeArquivosXML::GravarLinha(QStringList &linhas, const TGISLinha &linha)
{
    linhas.append(TLinha(QLatin1String("Linha"))
                      .Inteiro(QLatin1String("Estilo"), linha.Caneta().Style)
                      .Cor(QLatin1String("Cor"), linha.Caneta().Color, linha.IndiceCor())
                      .Fechar());
    GravarPartes(linhas, linha);
    GravarInformacoes(linhas, linha.Informacoes());
    linhas.append(QStringLiteral("</Linha>"));
}

void TTratadorDeArquivosXML::GravarArea(QStringList &linhas, const TGISArea &area)
{
    TLinha abertura(QLatin1String("Area"));
    abertura.Inteiro(QLatin1String("Estilo"), area.Caneta().Style)
        .Cor(QLatin1String("Cor"), area.Caneta().Color, area.IndiceCor());
    Preenchimento(abertura, area.Pincel(), area.IndicePincel());
    // Extensão: a área com furos marca a regra de preenchimento (um leitor que não a conhece lê
    // uma área comum, com as mesmas partes).
    if (dynamic_cast<const TGISAreaComFuros *>(&area))
        abertura.Atributo(QLatin1String("Regra"), QStringLiteral("ParImpar"));
    linhas.append(abertura.Fechar());
    GravarPartes(linhas, area);
    GravarInformacoes(linhas, area.Informacoes());
    linhas.append(QStringLiteral("</Area>"));
}

void TTratadorDeArquivosXML::GravarCorredor(QStringList &linhas, const TGISCorredor &corredor)
{
    TLinha abertura(QLatin1String("Corredor"));
    abertura.Inteiro(QLatin1String("Estilo"), corredor.Caneta().Style)
        .Cor(QLatin1String("Cor"), corredor.Caneta().Color, corredor.IndiceCor());
    Preenchimento(abertura, corredor.Pincel(), corredor.IndicePincel())
        .Atributo(QLatin1String("Esq"), Distancia(corredor.Esq()))
        .Atributo(QLatin1String("Dir"), Distancia(corredor.Dir()));
    linhas.append(abertura.Fechar());
    GravarPartes(linhas, corredor);
    GravarInformacoes(linhas, corredor.Informacoes());
    linhas.append(QStringLiteral("</Corredor>"));
}

void TTratadorDeArquivosXML::GravarTrajeto(QStringList &linhas, const TGISTrajeto &trajeto)
{
    linhas.append(TLinha(QLatin1String("Trajeto"))
                      .Inteiro(QLatin1String("Estilo"), trajeto.Caneta().Style)
                      .Cor(QLatin1String("Cor"), trajeto.Caneta().Color, trajeto.IndiceCor())
                      .Fechar());
    // No trajeto, ao contrário das outras linhas, o bloco de informações vem antes dos pontos.
    GravarInformacoes(linhas, trajeto.Informacoes());
    GravarPontosTrajeto(linhas, trajeto.Pontos());
    linhas.append(QStringLiteral("</Trajeto>"));
}

namespace {

TLinha AberturaCircular(QLatin1String nome, const TGISAreaCircular &area, const TGISElipse *elipse)
{
    const TGISPosicao p = area.Posicao();
    TLinha linha(nome);
    linha.Grau(QLatin1String("Latitude"), p.Latitude, true)
        .Grau(QLatin1String("Longitude"), p.Longitude, false)
        .Atributo(QLatin1String("RaioMaior"), Distancia(area.RaioMaior()))
        .Atributo(QLatin1String("RaioMenor"), Distancia(area.RaioMenor()));
    if (elipse)
        linha.Atributo(QLatin1String("RaioMaiorY"), Distancia(elipse->RaioMaiorY()))
            .Atributo(QLatin1String("RaioMenorY"), Distancia(elipse->RaioMenorY()));
    linha.Atributo(QLatin1String("AzimuteInicial"), Angulo(area.AzimuteInicial()))
        .Atributo(QLatin1String("AzimuteFinal"), Angulo(area.AzimuteFinal()))
        .Inteiro(QLatin1String("Estilo"), area.Caneta().Style)
        .Cor(QLatin1String("Cor"), area.Caneta().Color, area.IndiceCor());
    Preenchimento(linha, area.Pincel(), area.IndicePincel());
    return linha;
}

} // namespace

void TTratadorDeArquivosXML::GravarAreaCircular(QStringList &linhas, const TGISAreaCircular &area)
{
    linhas.append(AberturaCircular(QLatin1String("AreaCircular"), area, nullptr).Fechar());
    GravarInformacoes(linhas, area.Informacoes());
    linhas.append(QStringLiteral("</AreaCircular>"));
}

void TTratadorDeArquivosXML::GravarElipse(QStringList &linhas, const TGISElipse &elipse)
{
    linhas.append(AberturaCircular(QLatin1String("Elipse"), elipse, &elipse).Fechar());
    GravarInformacoes(linhas, elipse.Informacoes());
    linhas.append(QStringLiteral("</Elipse>"));
}

void TTratadorDeArquivosXML::GravarComposto(QStringList &linhas, const TGISComposto &composto)
{
    linhas.append(QStringLiteral("<Composto>"));
    GravarLista(linhas, composto.Objetos());
    linhas.append(QStringLiteral("</Composto>"));
}

void TTratadorDeArquivosXML::GravarPartes(QStringList &linhas, const TGISLinha &linha)
{
    linhas.append(QStringLiteral("<Pontos>"));
    const TGISPosicaoListList &partes = linha.Pontos();
    for (int parte = 0; parte < partes.Count(); ++parte) {
        const TGISPosicaoList *lista = partes.ObterGISPosicaoList(parte);
        if (!lista)
            continue;
        for (int i = 0; i < lista->Count(); ++i) {
            const TGISPosicao p = linha.ObterPonto(parte, i);
            QString texto;
            texto.reserve(72);
            texto += i == 0 ? QLatin1String("<Ponto Tipo=\"Inicio\" Latitude=\"") : QLatin1String("<Ponto Latitude=\"");
            AcrescentarGrau(texto, p.Latitude, true);
            texto += QLatin1String("\" Longitude=\"");
            AcrescentarGrau(texto, p.Longitude, false);
            texto += QLatin1String("\"/>");
            linhas.append(texto);
        }
    }
    linhas.append(QStringLiteral("</Pontos>"));
}

void TTratadorDeArquivosXML::GravarPontosTrajeto(QStringList &linhas, const TGISPontosTrajeto &pontos)
{
    linhas.append(QStringLiteral("<Pontos>"));
    for (int i = 0; i < pontos.Count(); ++i) {
        const TGISPontoTrajeto *ponto = pontos.ObterPonto(i);
        if (!ponto)
            continue;
        const TGISPosicao p = ponto->Posicao();
        linhas.append(TLinha(QLatin1String("Ponto"))
                          .Grau(QLatin1String("Latitude"), p.Latitude, true)
                          .Grau(QLatin1String("Longitude"), p.Longitude, false)
                          .Fechar());
        GravarInformacoes(linhas, ponto->Informacoes());
        linhas.append(QStringLiteral("</Ponto>"));
    }
    linhas.append(QStringLiteral("</Pontos>"));
}

} // namespace tavru

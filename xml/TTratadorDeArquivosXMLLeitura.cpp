// A leitura dos elementos do documento: de um nó do DOM para um objeto do mapa.

#include <tavru/xml/TTratadorDeArquivosXML.h>

#include <tavru/companions/geodesy/TextoGeodesico.h>
#include <tavru/companions/symbology/InformacoesXML.h>
#include <tavru/companions/symbology/Tagsxml.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/core/TGISPosicaoListList.h>
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
#include <tavru/platform/Exception.h>
#include <tavru/xml/CodificacaoXML_p.h>
#include <tavru/xml/ConfiguracaoXML.h>
#include <tavru/xml/NoXML_p.h>

#include <QDir>
#include <QFileInfo>
#include <cstring>
#include <iterator>
#include <vector>

namespace tavru {

using namespace xmlp;
using xmlp::Dom;

namespace {

// Compostos dentro de compostos: a leitura é recursiva, então a profundidade tem limite (um
// documento de fora não derruba o programa pela pilha).
// A profundidade é da leitura (ver `TLeituraXML`), não do processo: duas leituras ao mesmo tempo
// não somam os seus níveis.
constexpr int ProfundidadeMaxima = 200;

struct TNivel
{
    explicit TNivel(TLeituraXML &leitura) : FLeitura(leitura)
    {
        if (FLeitura.Profundidade >= ProfundidadeMaxima)
            throw EFilerError(QStringLiteral("Compostos aninhados em mais de %1 níveis: o documento não é lido além "
                                             "daqui.")
                                  .arg(ProfundidadeMaxima));
        ++FLeitura.Profundidade;
    }
    ~TNivel() { --FLeitura.Profundidade; }
    TLeituraXML &FLeitura;
    TNivel(const TNivel &) = delete;
    TNivel &operator=(const TNivel &) = delete;
};

// O valor do atributo quando ele existe.
bool Atributo(const pugi::xml_node &node, const char *nome, const char *&valor)
{
    const pugi::xml_attribute a = node.attribute(nome);
    if (!a)
        return false;
    valor = a.value();
    return true;
}

// `Latitude` e `Longitude` sobre uma posição: o componente que falta fica como estava.
void LerPosicao(const pugi::xml_node &node, TGISPosicao &p)
{
    const char *v;
    if (Atributo(node, "Latitude", v))
        p.Latitude = LerLatitude(v);
    if (Atributo(node, "Longitude", v))
        p.Longitude = LerLongitude(v);
}

// A cor `nome` como cor de caneta (modo normal) ou código de cor do objeto (modo da tabela).
void LerCorDaCaneta(const pugi::xml_node &node, TGISObjeto &objeto)
{
    const char *v;
    if (!Atributo(node, "Cor", v))
        return;
    if (USAR_TABELA_DE_SIMBOLOS)
        objeto.AtribuirIndiceCor(LerInteiro(v));
    else
        objeto.Caneta().Color = LerCorHexadecimal(v);
}

template <typename T>
void LerPreenchimento(const pugi::xml_node &node, T &objeto)
{
    const char *v;
    if (Atributo(node, "EstiloPreenchimento", v))
        objeto.Pincel().Style = LerEstiloPincel(v);
    if (Atributo(node, "CorPreenchimento", v)) {
        if (USAR_TABELA_DE_SIMBOLOS)
            objeto.AtribuirIndicePincel(LerInteiro(v));
        else
            objeto.Pincel().Color = LerCorHexadecimal(v);
    }
}

void LerEstilo(const pugi::xml_node &node, TGISObjeto &objeto)
{
    const char *v;
    if (Atributo(node, "Estilo", v))
        objeto.Caneta().Style = LerEstiloCaneta(v);
}

std::uint8_t LerByte(const char *texto)
{
    const std::int32_t v = LerInteiro(texto);
    if (v < 0 || v > 255)
        throw EConvertError(QStringLiteral("%1 não é um valor de 0 a 255").arg(CitarValor(Texto(texto))));
    return static_cast<std::uint8_t>(v);
}

void LerInformacoes(const pugi::xml_node &node, TInformacoes &informacoes)
{
    AtribuirListaXML(node, _INFORMACOES_, _INFORMACAO_, true, informacoes, _VALOR_, _ROTULO_);
}

} // namespace

const TClasseObjeto *ObterRefClassObjetoGis(const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    struct TEntrada
    {
        const char *Nome;
        const TClasseObjeto *Classe;
    };
    static const TEntrada tabela[] = {
        {"Imagem", &TGISImagem::Descritor},   {"Ponto", &TGISPonto::Descritor},
        {"Area", &TGISArea::Descritor},       {"Trajeto", &TGISTrajeto::Descritor},
        {"Linha", &TGISLinha::Descritor},     {"Corredor", &TGISCorredor::Descritor},
        {"AreaCircular", &TGISAreaCircular::Descritor}, {"Elipse", &TGISElipse::Descritor},
        {"Texto", &TGISTexto::Descritor},     {"Composto", &TGISComposto::Descritor},
    };
    if (node.type() != pugi::node_element)
        return nullptr;
    const char *nome = node.name();
    for (const TEntrada &e : tabela)
        if (std::strcmp(nome, e.Nome) == 0) {
            // Extensão: um `Area` com `Regra="ParImpar"` é uma área com furos.
            if (e.Classe == &TGISArea::Descritor && std::strcmp(node.attribute("Regra").value(), "ParImpar") == 0)
                return &TGISAreaComFuros::Descritor;
            return e.Classe;
        }
    return nullptr;
}

std::unique_ptr<TGISObjeto> TTratadorDeArquivosXML::ObterXMLObjeto(const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    const TClasseObjeto *classe = ObterRefClassObjetoGis(no);
    if (!classe)
        return nullptr;
    std::unique_ptr<TGISObjeto> objeto = classe->Criar();
    TGISObjeto *o = objeto.get();
    if (auto *imagem = dynamic_cast<TGISImagem *>(o))
        AtribuirXMLImagem(*imagem, no);
    else if (auto *ponto = dynamic_cast<TGISPonto *>(o))
        AtribuirXMLPonto(*ponto, no);
    else if (auto *elipse = dynamic_cast<TGISElipse *>(o))
        AtribuirXMLElipse(*elipse, no);
    else if (auto *circular = dynamic_cast<TGISAreaCircular *>(o))
        AtribuirXMLAreaCircular(*circular, no);
    else if (auto *area = dynamic_cast<TGISArea *>(o))
        AtribuirXMLArea(*area, no);
    else if (auto *corredor = dynamic_cast<TGISCorredor *>(o))
        AtribuirXMLCorredor(*corredor, no);
    else if (auto *trajeto = dynamic_cast<TGISTrajeto *>(o))
        AtribuirXMLTrajeto(*trajeto, no);
    else if (auto *linha = dynamic_cast<TGISLinha *>(o))
        AtribuirXMLLinha(*linha, no);
    else if (auto *texto = dynamic_cast<TGISTexto *>(o))
        AtribuirXMLTexto(*texto, no);
    else if (auto *composto = dynamic_cast<TGISComposto *>(o))
        AtribuirXMLComposto(*composto, no);
    LerInformacoes(node, o->Informacoes());
    return objeto;
}

void TTratadorDeArquivosXML::AtribuirXMLLista(TGISObjetoList &lista, const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    // Só a lista do documento avisa o progresso (os membros de um composto não contam à parte).
    const TLeituraXML *leitura = TAcessoNoXML::Leitura(no);
    TGISTratadorDeArquivo *tratador = leitura ? leitura->Tratador : nullptr;
    const bool doDocumento = tratador && &lista == &tratador->Lista();
    const double total = doDocumento ? static_cast<double>(std::distance(node.begin(), node.end())) : 1.0;
    int feitos = 0;
    for (pugi::xml_node filho = node.first_child(); filho; filho = filho.next_sibling()) {
        if (std::unique_ptr<TGISObjeto> objeto = ObterXMLObjeto(Na(no, filho)))
            lista.Add(objeto.release());
        if (doDocumento)
            tratador->AvisarProgresso(++feitos / total, lista.Count());
    }
}

void TTratadorDeArquivosXML::AtribuirXMLImagem(TGISImagem &imagem, const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    const char *v;
    if (Atributo(node, "Arquivo", v)) {
        // Um nome relativo vale primeiro ao lado do documento, depois na pasta de trabalho. O que
        // existe e não é um arquivo comum (um dispositivo, "/dev/zero", um FIFO) é erro de
        // `LerArquivo`, com o nome; o que não existe não é lido, sem erro.
        QString arquivo = Texto(v);
        const TLeituraXML *leitura = TAcessoNoXML::Leitura(no);
        if (!arquivo.isEmpty() && QFileInfo(arquivo).isRelative() && leitura && !leitura->Pasta.isEmpty()) {
            const QString aoLado = QDir(leitura->Pasta).filePath(arquivo);
            if (QFileInfo::exists(aoLado))
                arquivo = aoLado;
        }
        if (!arquivo.isEmpty() && QFileInfo::exists(arquivo))
            imagem.LerArquivo(arquivo);
    }
    TGISRet r = imagem.AreaImagem();
    if (Atributo(node, "LatMin", v))
        r.Pos1.Latitude = LerGrau(v);
    if (Atributo(node, "LongMin", v))
        r.Pos1.Longitude = LerGrau(v);
    if (Atributo(node, "LatMax", v))
        r.Pos2.Latitude = LerGrau(v);
    if (Atributo(node, "LongMax", v))
        r.Pos2.Longitude = LerGrau(v);
    imagem.AtribuirArea(r);
    if (Atributo(node, "CorTransparente", v))
        imagem.AtribuirCor(LerCorHexadecimal(v));
}

void TTratadorDeArquivosXML::AtribuirXMLPonto(TGISPonto &ponto, const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    TGISPosicao p = ponto.Posicao();
    LerPosicao(node, p);
    ponto.AtribuirPosicao(p);

    const char *v;
    if (Atributo(node, "Símbolo", v))
        ponto.AtribuirSimbolo(LerInteiro(v));

    TPoint maximo{8, 8};
    TPoint minimo{2, 2};
    if (Atributo(node, "TamanhoMaximoNaTelaX", v))
        maximo.X = LerInteiro(v);
    if (Atributo(node, "TamanhoMaximoNaTelaY", v))
        maximo.Y = LerInteiro(v);
    if (Atributo(node, "TamanhoMinimoNaTelaX", v))
        minimo.X = LerInteiro(v);
    if (Atributo(node, "TamanhoMinimoNaTelaY", v))
        minimo.Y = LerInteiro(v);
    ponto.AtribuirTamanhoMaximo(maximo);
    ponto.AtribuirTamanhoMinimo(minimo);

    TGISPosicao mundo{1000, 1000};
    if (Atributo(node, "TamanhoNoMundoLatitude", v))
        mundo.Latitude = LerTamanhoNoMundo(v);
    if (Atributo(node, "TamanhoNoMundoLongitude", v))
        mundo.Longitude = LerTamanhoNoMundo(v);
    ponto.AtribuirTamanhoNoMundo(mundo);

    if (Atributo(node, "Cor", v)) {
        if (USAR_TABELA_DE_SIMBOLOS)
            ponto.AtribuirIndiceCor(LerInteiro(v));
        else
            ponto.AtribuirCor(LerCorHexadecimal(v));
    }
}

void TTratadorDeArquivosXML::AtribuirXMLTexto(TGISTexto &texto, const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    const char *v;
    // A fonte vai inteira antes do texto: o texto é medido uma vez só.
    TFont fonte = texto.Fonte();
    if (Atributo(node, "Fonte", v))
        fonte.Name = Texto(v);
    if (Atributo(node, "AlinhamentoVertical", v))
        texto.AtribuirAlinhamentoVertical(LerByte(v));
    if (Atributo(node, "AlinhamentoHorizontal", v))
        texto.AtribuirAlinhamentoHorizontal(LerByte(v));
    if (Atributo(node, "FonteTamanho", v))
        fonte.SetSize(LerInteiro(v));
    texto.AtribuirFonte(fonte);
    if (Atributo(node, "Texto", v))
        texto.AtribuirTexto(Texto(v));
}

void TTratadorDeArquivosXML::AtribuirXMLLinha(TGISLinha &linha, const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    LerEstilo(node, linha);
    LerCorDaCaneta(node, linha);
    if (const pugi::xml_node pontos = node.child("Pontos"))
        AtribuirXMLPontos(linha.Pontos(), Na(no, pontos));
    linha.CalcularLimites();
}

void TTratadorDeArquivosXML::AtribuirXMLArea(TGISArea &area, const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    LerPreenchimento(node, area);
    AtribuirXMLLinha(area, no);
}

void TTratadorDeArquivosXML::AtribuirXMLCorredor(TGISCorredor &corredor, const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    const char *v;
    if (Atributo(node, "Esq", v))
        corredor.AtribuirEsq(StrToDistancia(Texto(v)));
    if (Atributo(node, "Dir", v))
        corredor.AtribuirDir(StrToDistancia(Texto(v)));
    AtribuirXMLLinha(corredor, no);
}

void TTratadorDeArquivosXML::AtribuirXMLTrajeto(TGISTrajeto &trajeto, const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    LerEstilo(node, trajeto);
    LerCorDaCaneta(node, trajeto);
    if (const pugi::xml_node pontos = node.child("Pontos"))
        AtribuirXMLPontosTrajeto(trajeto.Pontos(), Na(no, pontos));
    trajeto.CalcularLimites();
}

void TTratadorDeArquivosXML::AtribuirXMLAreaCircular(TGISAreaCircular &area, const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    TGISPosicao centro = area.Posicao();
    LerPosicao(node, centro);
    area.AtribuirPosicao(centro);

    const char *v;
    if (Atributo(node, "RaioMaior", v))
        area.AtribuirRaioMaior(StrToDistancia(Texto(v)));
    if (Atributo(node, "RaioMenor", v))
        area.AtribuirRaioMenor(StrToDistancia(Texto(v)));
    if (Atributo(node, "AzimuteInicial", v))
        area.AtribuirAzimuteInicial(StrToAngulo(Texto(v)));
    if (Atributo(node, "AzimuteFinal", v))
        area.AtribuirAzimuteFinal(StrToAngulo(Texto(v)));
    LerPreenchimento(node, area);
    LerEstilo(node, area);
    LerCorDaCaneta(node, area);
}

void TTratadorDeArquivosXML::AtribuirXMLElipse(TGISElipse &elipse, const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    AtribuirXMLAreaCircular(elipse, no);
    const char *v;
    if (Atributo(node, "RaioMaiorY", v))
        elipse.AtribuirRaioMaiorY(StrToDistancia(Texto(v)));
    if (Atributo(node, "RaioMenorY", v))
        elipse.AtribuirRaioMenorY(StrToDistancia(Texto(v)));
}

void TTratadorDeArquivosXML::AtribuirXMLComposto(TGISComposto &composto, const TNoXML &no)
{
    TLeituraXML nova; // um composto lido fora de uma leitura começa uma
    const TNoXML comLeitura = ComLeitura(no, nova);
    const TNivel nivel(*TAcessoNoXML::Leitura(comLeitura));
    AtribuirXMLLista(composto.Objetos(), comLeitura);
}

void TTratadorDeArquivosXML::AtribuirXMLPontos(TGISPosicaoListList &partes, const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    // Os vértices da parte corrente se juntam num vetor e vão para a parte de uma vez, com a
    // memória exata (sem a folga do crescimento).
    TGISPosicaoList *parte = nullptr;
    std::vector<TGISPosicao> vertices;
    const auto fecharParte = [&]() {
        if (!parte)
            return;
        parte->Redimensionar(static_cast<int>(vertices.size()));
        std::copy(vertices.begin(), vertices.end(), parte->Dados());
        vertices.clear();
    };

    TGISPosicao posicao{0, 0};
    try {
        int indice = 0;
        for (pugi::xml_node filho = node.first_child(); filho; filho = filho.next_sibling(), ++indice) {
            // Uma volta pelos atributos do vértice (e não uma busca por nome para cada um); vale o
            // primeiro de cada nome, como na busca.
            pugi::xml_attribute latitude, longitude, tipo;
            for (pugi::xml_attribute a = filho.first_attribute(); a; a = a.next_attribute()) {
                const char *nome = a.name();
                if (!latitude && std::strcmp(nome, "Latitude") == 0)
                    latitude = a;
                else if (!longitude && std::strcmp(nome, "Longitude") == 0)
                    longitude = a;
                else if (!tipo && std::strcmp(nome, "Tipo") == 0)
                    tipo = a;
            }
            if (!latitude && !longitude)
                continue;
            const bool nova = indice == 0 || !parte || (tipo && std::strcmp(tipo.value(), "Inicio") == 0);
            if (nova) {
                fecharParte();
                parte = new TGISPosicaoList;
                partes.Add(parte);
            }
            if (latitude)
                posicao.Latitude = LerLatitude(latitude.value());
            if (longitude)
                posicao.Longitude = LerLongitude(longitude.value());
            vertices.push_back(posicao);
        }
    } catch (...) {
        fecharParte();
        throw;
    }
    fecharParte();
}

void TTratadorDeArquivosXML::AtribuirXMLPontosTrajeto(TGISPontosTrajeto &pontos, const TNoXML &no)
{
    const pugi::xml_node node = Dom(no);
    for (pugi::xml_node filho = node.first_child(); filho; filho = filho.next_sibling()) {
        const pugi::xml_attribute latitude = filho.attribute("Latitude");
        const pugi::xml_attribute longitude = filho.attribute("Longitude");
        if (!latitude || !longitude)
            continue;
        auto ponto = std::make_unique<TGISPontoTrajeto>();
        ponto->AtribuirPosicao(GISPosicao(LerLatitude(latitude.value()), LerLongitude(longitude.value())));
        LerInformacoes(filho, ponto->Informacoes());
        const TInformacoes &informacoes = ponto->Informacoes();
        if (informacoes.ObterIndiceCampo(QStringLiteral("Identificador")) >= 0) {
            const int objeto = informacoes.ObterIndiceCampo(QStringLiteral("Objeto Acompanhado"));
            ponto->AtribuirFixo(true);
            ponto->AtribuirRotulo(objeto >= 0 ? informacoes.ObterValorCampo(objeto) : QStringLiteral("Ponto Fixo"));
        }
        pontos.Add(ponto.release());
    }
}

} // namespace tavru

// A forma XML da tabela de símbolos: gravação e leitura (ver TTabelaDeSimbolos.h).

#include <tavru/companions/symbology/TSimboloFonte.h>
#include <tavru/companions/symbology/TSimboloGrafico.h>
#include <tavru/companions/symbology/TSimboloVetorial.h>
#include <tavru/companions/symbology/TTabelaDeSimbolos.h>
#include <tavru/platform/Exception.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cmath>
#include <cstring>
#include <limits>
#include <pugixml.hpp>

namespace tavru {

namespace {

constexpr qint64 TamanhoMaximo = 32 * 1024 * 1024;
const char *const Raiz = "TabelaDeSimbolos";

// ---- Gravação ----

void Inteiro(pugi::xml_node no, const char *nome, long long valor)
{
    no.append_attribute(nome).set_value(QByteArray::number(valor).constData());
}

void Real(pugi::xml_node no, const char *nome, double valor)
{
    no.append_attribute(nome).set_value(QByteArray::number(valor, 'g', 17).constData());
}

void Texto(pugi::xml_node no, const char *nome, const QString &valor)
{
    no.append_attribute(nome).set_value(valor.toUtf8().constData());
}

void GravarFonte(pugi::xml_node no, const TFont &f)
{
    Texto(no, "FonteNome", f.Name);
    Inteiro(no, "FonteAltura", f.Height());
    Inteiro(no, "FonteCor", f.Color);
    Inteiro(no, "FonteConjunto", f.Charset);
    Inteiro(no, "FonteEstilo", f.Style);
    Inteiro(no, "FonteEscapamento", f.Escapement);
}

void GravarCanetaEPincel(pugi::xml_node no, const TPen &caneta, const TBrush &pincel)
{
    Inteiro(no, "CorCaneta", caneta.Color);
    Inteiro(no, "EstiloCaneta", caneta.Style);
    Inteiro(no, "LarguraCaneta", caneta.Width);
    Inteiro(no, "CorPincel", pincel.Color);
    Inteiro(no, "EstiloPincel", pincel.Style);
}

void GravarElemento(pugi::xml_node pai, const TElementoGrafico &e)
{
    if (const auto *p = dynamic_cast<const TPonto *>(&e)) {
        pugi::xml_node no = pai.append_child("Ponto");
        Inteiro(no, "X", p->Posicao().X);
        Inteiro(no, "Y", p->Posicao().Y);
        Inteiro(no, "Cor", p->Cor());
    } else if (const auto *t = dynamic_cast<const TTexto *>(&e)) {
        pugi::xml_node no = pai.append_child("Texto");
        Inteiro(no, "X", t->Posicao().X);
        Inteiro(no, "Y", t->Posicao().Y);
        Texto(no, "Texto", t->Texto());
        Inteiro(no, "AlinhamentoHorizontal", t->AlinhamentoHorizontal());
        Inteiro(no, "AlinhamentoVertical", t->AlinhamentoVertical());
        Inteiro(no, "GiroAdicional", t->GiroAdicional());
        GravarFonte(no, t->Fonte());
    } else if (const auto *s = dynamic_cast<const TSetor *>(&e)) {
        const auto *elipse = dynamic_cast<const TElipse *>(s);
        pugi::xml_node no = pai.append_child(elipse ? "Elipse" : "Setor");
        Inteiro(no, "X", s->Centro().X);
        Inteiro(no, "Y", s->Centro().Y);
        Real(no, "RaioExterno", s->RaioExterno());
        Real(no, "RaioInterno", s->RaioInterno());
        Real(no, "AnguloInicial", s->AnguloInicial());
        Real(no, "AnguloFinal", s->AnguloFinal());
        GravarCanetaEPincel(no, s->Caneta(), s->Pincel());
        if (elipse) {
            Real(no, "RaioExternoY", elipse->RaioExternoY());
            Real(no, "RaioInternoY", elipse->RaioInternoY());
        }
    } else if (const auto *g = dynamic_cast<const TPoligono *>(&e)) {
        pugi::xml_node no = pai.append_child("Poligono");
        Inteiro(no, "Preenchido", g->Preenchido() ? 1 : 0);
        GravarCanetaEPincel(no, g->Caneta(), g->Pincel());
        QByteArray posicoes;
        for (const TPoint &p : g->ObterListaPosicao()) {
            if (!posicoes.isEmpty())
                posicoes += ' ';
            posicoes += QByteArray::number(p.X) + ',' + QByteArray::number(p.Y);
        }
        no.append_attribute("Posicoes").set_value(posicoes.constData());
    }
}

struct TEscritor : pugi::xml_writer
{
    QByteArray Texto;
    void write(const void *dados, size_t tamanho) override
    {
        Texto.append(static_cast<const char *>(dados), static_cast<qsizetype>(tamanho));
    }
};

// ---- Leitura ----

QString Nome(const pugi::xml_node &no)
{
    return QString::fromUtf8(no.name());
}

[[noreturn]] void Invalido(const pugi::xml_node &no, const char *atributo, const char *valor, const QString &motivo)
{
    throw EConvertError(QStringLiteral("Tabela de símbolos: o atributo %1=\"%2\" de <%3> %4.")
                            .arg(QString::fromUtf8(atributo), QString::fromUtf8(valor), Nome(no), motivo));
}

long long LerInteiro(const pugi::xml_node &no, const char *nome, long long padrao, long long minimo, long long maximo)
{
    const pugi::xml_attribute a = no.attribute(nome);
    if (!a)
        return padrao;
    bool ok = false;
    const long long v = QByteArray(a.value()).trimmed().toLongLong(&ok);
    if (!ok || v < minimo || v > maximo)
        Invalido(no, nome, a.value(), QStringLiteral("não é um inteiro de %1 a %2").arg(minimo).arg(maximo));
    return v;
}

int LerCoordenada(const pugi::xml_node &no, const char *nome)
{
    return static_cast<int>(LerInteiro(no, nome, 0, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

TColor LerCor(const pugi::xml_node &no, const char *nome, TColor padrao)
{
    return static_cast<TColor>(
        LerInteiro(no, nome, padrao, std::numeric_limits<TColor>::min(), std::numeric_limits<TColor>::max()));
}

double LerReal(const pugi::xml_node &no, const char *nome)
{
    const pugi::xml_attribute a = no.attribute(nome);
    if (!a)
        return 0.0;
    bool ok = false;
    const double v = QByteArray(a.value()).trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(v))
        Invalido(no, nome, a.value(), QStringLiteral("não é um número finito"));
    return v;
}

QString LerTexto(const pugi::xml_node &no, const char *nome, const QString &padrao = QString())
{
    const pugi::xml_attribute a = no.attribute(nome);
    return a ? QString::fromUtf8(a.value()) : padrao;
}

void LerFonte(const pugi::xml_node &no, TFont &f)
{
    f.Name = LerTexto(no, "FonteNome", f.Name);
    f.SetHeight(static_cast<int>(LerInteiro(no, "FonteAltura", f.Height(), -10000, 10000)));
    f.Color = LerCor(no, "FonteCor", f.Color);
    f.Charset = static_cast<int>(LerInteiro(no, "FonteConjunto", f.Charset, 0, 255));
    f.Style = static_cast<TFontStyles>(LerInteiro(no, "FonteEstilo", f.Style, 0, 15));
    f.Escapement = static_cast<int>(LerInteiro(no, "FonteEscapamento", f.Escapement, -3600, 3600));
}

void LerCanetaEPincel(const pugi::xml_node &no, TPen &caneta, TBrush &pincel)
{
    caneta.Color = LerCor(no, "CorCaneta", caneta.Color);
    caneta.Style = static_cast<TPenStyle>(LerInteiro(no, "EstiloCaneta", caneta.Style, psSolid, psInsideFrame));
    caneta.Width = static_cast<int>(LerInteiro(no, "LarguraCaneta", caneta.Width, 0, 1000));
    pincel.Color = LerCor(no, "CorPincel", pincel.Color);
    pincel.Style = static_cast<TBrushStyle>(LerInteiro(no, "EstiloPincel", pincel.Style, bsSolid, bsDiagCross));
}

void LerSetor(const pugi::xml_node &no, TSetor &s)
{
    s.AtribuirCentro(TPoint(LerCoordenada(no, "X"), LerCoordenada(no, "Y")));
    s.AtribuirRaioExterno(LerReal(no, "RaioExterno"));
    s.AtribuirRaioInterno(LerReal(no, "RaioInterno"));
    s.AtribuirAnguloInicial(LerReal(no, "AnguloInicial"));
    s.AtribuirAnguloFinal(LerReal(no, "AnguloFinal"));
    LerCanetaEPincel(no, s.Caneta(), s.Pincel());
}

void LerPosicoes(const pugi::xml_node &no, TListaPosicoes &lista)
{
    const pugi::xml_attribute a = no.attribute("Posicoes");
    const QList<QByteArray> pares = QByteArray(a.value()).simplified().split(' ');
    for (const QByteArray &par : pares) {
        if (par.isEmpty())
            continue;
        const int virgula = par.indexOf(',');
        bool okX = false, okY = false;
        const int x = virgula > 0 ? par.left(virgula).toInt(&okX) : 0;
        const int y = virgula > 0 ? par.mid(virgula + 1).toInt(&okY) : 0;
        if (!okX || !okY)
            Invalido(no, "Posicoes", par.constData(), QStringLiteral("não é um par \"x,y\" de inteiros de 32 bits"));
        lista.Add(TPoint(x, y));
    }
}

std::unique_ptr<TElementoGrafico> LerElemento(const pugi::xml_node &no)
{
    const char *nome = no.name();
    if (!std::strcmp(nome, "Ponto")) {
        return std::make_unique<TPonto>(TPoint(LerCoordenada(no, "X"), LerCoordenada(no, "Y")),
                                        LerCor(no, "Cor", clBlack));
    }
    if (!std::strcmp(nome, "Texto")) {
        auto t = std::make_unique<TTexto>();
        t->AtribuirPosicao(TPoint(LerCoordenada(no, "X"), LerCoordenada(no, "Y")));
        t->AtribuirTexto(LerTexto(no, "Texto"));
        t->AtribuirAlinhamentoHorizontal(static_cast<std::uint8_t>(LerInteiro(no, "AlinhamentoHorizontal", 2, 0, 255)));
        t->AtribuirAlinhamentoVertical(static_cast<std::uint8_t>(LerInteiro(no, "AlinhamentoVertical", 2, 0, 255)));
        t->AtribuirGiroAdicional(static_cast<std::int16_t>(LerInteiro(no, "GiroAdicional", 0, -32768, 32767)));
        LerFonte(no, t->Fonte());
        return t;
    }
    if (!std::strcmp(nome, "Setor")) {
        auto s = std::make_unique<TSetor>();
        LerSetor(no, *s);
        return s;
    }
    if (!std::strcmp(nome, "Elipse")) {
        auto e = std::make_unique<TElipse>();
        LerSetor(no, *e);
        e->AtribuirRaioExternoY(LerReal(no, "RaioExternoY"));
        e->AtribuirRaioInternoY(LerReal(no, "RaioInternoY"));
        return e;
    }
    if (!std::strcmp(nome, "Poligono")) {
        auto p = std::make_unique<TPoligono>();
        p->AtribuirPreenchido(LerInteiro(no, "Preenchido", 0, 0, 1) != 0);
        LerCanetaEPincel(no, p->Caneta(), p->Pincel());
        LerPosicoes(no, p->ObterListaPosicao());
        return p;
    }
    return nullptr;
}

std::unique_ptr<ISimbolo> LerSimbolo(const pugi::xml_node &no, const QString &pasta)
{
    const char *nome = no.name();
    const QString nomeSimbolo = LerTexto(no, "Nome");
    if (!std::strcmp(nome, "SimboloVetorial")) {
        auto s = std::make_unique<TSimboloVetorial>(nomeSimbolo);
        for (pugi::xml_node filho = no.first_child(); filho; filho = filho.next_sibling())
            if (filho.type() == pugi::node_element)
                if (std::unique_ptr<TElementoGrafico> e = LerElemento(filho))
                    s->Elementos().Add(e.release());
        return s;
    }
    if (!std::strcmp(nome, "SimboloFonte")) {
        auto s = std::make_unique<TSimboloFonte>(nomeSimbolo);
        s->AtribuirLetra(QChar(static_cast<char16_t>(LerInteiro(no, "Letra", 0, 0, 0xFFFF))));
        LerFonte(no, s->Fonte());
        return s;
    }
    if (!std::strcmp(nome, "SimboloGrafico")) {
        auto s = std::make_unique<TSimboloGrafico>(nomeSimbolo);
        const QString arquivo = LerTexto(no, "Arquivo");
        QString caminho = arquivo;
        if (!pasta.isEmpty() && !arquivo.isEmpty() && QFileInfo(arquivo).isRelative()
            && QFileInfo::exists(QDir(pasta).filePath(arquivo)))
            caminho = QDir(pasta).filePath(arquivo);
        try {
            s->LerArquivo(caminho);
        } catch (const EInOutError &) {
            // Sem a figura, o símbolo fica com o nome do arquivo (ver AtribuirXML).
        }
        return s;
    }
    return nullptr;
}

} // namespace

QByteArray TTabelaDeSimbolos::ObterXML() const
{
    pugi::xml_document documento;
    pugi::xml_node declaracao = documento.append_child(pugi::node_declaration);
    declaracao.append_attribute("version").set_value("1.0");
    declaracao.append_attribute("encoding").set_value("UTF-8");
    pugi::xml_node raiz = documento.append_child(Raiz);
    raiz.append_attribute("Versao").set_value("1");
    for (const std::unique_ptr<ISimbolo> &simbolo : FSimbolos) {
        if (const auto *v = dynamic_cast<const TSimboloVetorial *>(simbolo.get())) {
            pugi::xml_node no = raiz.append_child("SimboloVetorial");
            Texto(no, "Nome", v->Nome());
            for (int i = 0; i < v->Elementos().Count(); ++i)
                if (const TElementoGrafico *e = v->Elementos().Items(i))
                    GravarElemento(no, *e);
        } else if (const auto *f = dynamic_cast<const TSimboloFonte *>(simbolo.get())) {
            pugi::xml_node no = raiz.append_child("SimboloFonte");
            Texto(no, "Nome", f->Nome());
            Inteiro(no, "Letra", f->Letra().unicode());
            GravarFonte(no, f->Fonte());
        } else if (const auto *g = dynamic_cast<const TSimboloGrafico *>(simbolo.get())) {
            pugi::xml_node no = raiz.append_child("SimboloGrafico");
            Texto(no, "Nome", g->Nome());
            Texto(no, "Arquivo", g->NomeArquivo());
        }
    }
    TEscritor escritor;
    documento.save(escritor, "  ", pugi::format_default, pugi::encoding_utf8);
    return escritor.Texto;
}

void TTabelaDeSimbolos::AtribuirXML(const QByteArray &xml, const QString &pasta)
{
    pugi::xml_document documento;
    const pugi::xml_parse_result r =
        documento.load_buffer(xml.constData(), static_cast<size_t>(xml.size()), pugi::parse_default, pugi::encoding_utf8);
    if (!r)
        throw EFilerError(QStringLiteral("A tabela de símbolos não é um documento XML bem formado: %1 (posição %2).")
                              .arg(QString::fromUtf8(r.description()))
                              .arg(r.offset));
    const pugi::xml_node raiz = documento.document_element();
    if (std::strcmp(raiz.name(), Raiz) != 0)
        throw EFilerError(QStringLiteral("O documento não é uma tabela de símbolos: a raiz é <%1>, e não <%2>.")
                              .arg(Nome(raiz), QString::fromUtf8(Raiz)));
    std::vector<std::unique_ptr<ISimbolo>> lidos;
    for (pugi::xml_node no = raiz.first_child(); no; no = no.next_sibling())
        if (no.type() == pugi::node_element)
            if (std::unique_ptr<ISimbolo> s = LerSimbolo(no, pasta))
                lidos.push_back(std::move(s));
    FSimbolos.swap(lidos);
}

void TTabelaDeSimbolos::Ler(const QString &nomeArquivo)
{
    QFile arquivo(nomeArquivo);
    if (!QFileInfo(nomeArquivo).isFile())
        throw EInOutError(QStringLiteral("O arquivo especificado não existe ou não está disponível!"));
    if (!arquivo.open(QIODevice::ReadOnly))
        throw EInOutError(
            QStringLiteral("Não foi possível abrir o arquivo \"%1\": %2.").arg(nomeArquivo, arquivo.errorString()));
    if (arquivo.size() > TamanhoMaximo)
        throw EInOutError(QStringLiteral("A tabela de símbolos \"%1\" passa de %2 MiB e não é lida.")
                              .arg(nomeArquivo)
                              .arg(TamanhoMaximo / (1024 * 1024)));
    AtribuirXML(arquivo.read(TamanhoMaximo), QFileInfo(nomeArquivo).absolutePath());
}

void TTabelaDeSimbolos::Gravar(const QString &nomeArquivo) const
{
    const QByteArray texto = ObterXML();
    QSaveFile arquivo(nomeArquivo);
    if (!arquivo.open(QIODevice::WriteOnly) || arquivo.write(texto) != texto.size() || !arquivo.commit())
        throw EInOutError(QStringLiteral("Não foi possível gravar o arquivo \"%1\": %2. O arquivo anterior, se havia, "
                                         "ficou como estava.")
                              .arg(nomeArquivo, arquivo.errorString()));
}

} // namespace tavru

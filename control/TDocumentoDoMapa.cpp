#include <tavru/control/TDocumentoDoMapa.h>

#include <tavru/control/TGis.h>
#include <tavru/core/TClasseTratador.h>
#include <tavru/core/TGISCamada.h>
#include <tavru/core/TGISCamadaList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/platform/ArquivoComum.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TStringList.h>

#include <QDir>
#include <QFileInfo>
#include <QMetaType>
#include <QTemporaryDir>

#include <pugixml.hpp>

#include <cmath>
#include <limits>
#include <memory>
#include <sstream>
#include <vector>

namespace tavru {

namespace {

// Nomes do documento. O tratador dos objetos de dentro é sempre o XML do mapa.
const char *const RAIZ = "MAPA";
const char *const VERSAO = "1";
const QString TRATADOR_DOS_OBJETOS = QStringLiteral("XML");
// Um documento de mapa é pequeno (os objetos grandes ficam nos arquivos referidos); o limite só
// impede que um arquivo estranho leve a memória toda.
constexpr qint64 TamanhoMaximo = qint64(512) * 1024 * 1024;

std::string U8(const QString &s) { return s.toStdString(); }
QString Q(const char *s) { return QString::fromUtf8(s); }

void Atributo(pugi::xml_node no, const char *nome, const QString &valor) { no.append_attribute(nome) = U8(valor).c_str(); }
void Atributo(pugi::xml_node no, const char *nome, long long valor) { no.append_attribute(nome) = valor; }
void AtributoLogico(pugi::xml_node no, const char *nome, bool valor) { no.append_attribute(nome) = valor ? "1" : "0"; }
void AtributoReal(pugi::xml_node no, const char *nome, double valor)
{
    no.append_attribute(nome) = QString::number(valor, 'g', 17).toUtf8().constData();
}

// Leitura dos atributos: cada número é conferido; um valor ausente ou fora da faixa é erro, com
// o elemento e o atributo na mensagem.
class TLeitor
{
public:
    explicit TLeitor(const QString &arquivo) : FArquivo(arquivo) {}

    [[noreturn]] void Erro(const QString &motivo) const
    {
        throw EConvertError(QStringLiteral("Documento de mapa inválido (%1): %2").arg(FArquivo, motivo));
    }
    pugi::xml_attribute Obrigatorio(pugi::xml_node no, const char *nome) const
    {
        const pugi::xml_attribute a = no.attribute(nome);
        if (!a)
            Erro(QStringLiteral("falta o atributo %1 em %2").arg(Q(nome), Q(no.name())));
        return a;
    }
    QString Texto(pugi::xml_node no, const char *nome) const { return Q(Obrigatorio(no, nome).value()); }
    long long Inteiro(pugi::xml_node no, const char *nome, long long minimo, long long maximo) const
    {
        bool ok = false;
        const long long v = QString::fromUtf8(Obrigatorio(no, nome).value()).toLongLong(&ok);
        if (!ok || v < minimo || v > maximo)
            Erro(QStringLiteral("%1 de %2 fora de %3..%4").arg(Q(nome), Q(no.name())).arg(minimo).arg(maximo));
        return v;
    }
    double Real(pugi::xml_node no, const char *nome) const
    {
        bool ok = false;
        const double v = QString::fromUtf8(Obrigatorio(no, nome).value()).toDouble(&ok);
        if (!ok || !std::isfinite(v))
            Erro(QStringLiteral("%1 de %2 não é um número").arg(Q(nome), Q(no.name())));
        return v;
    }
    bool Logico(pugi::xml_node no, const char *nome) const { return Inteiro(no, nome, 0, 1) != 0; }
    TColor Cor(pugi::xml_node no, const char *nome) const
    {
        return static_cast<TColor>(Inteiro(no, nome, std::numeric_limits<TColor>::min(), std::numeric_limits<TColor>::max()));
    }
    pugi::xml_node Filho(pugi::xml_node no, const char *nome) const
    {
        const pugi::xml_node f = no.child(nome);
        if (!f)
            Erro(QStringLiteral("falta o elemento %1 em %2").arg(Q(nome), Q(no.name())));
        return f;
    }

private:
    QString FArquivo;
};

// Os objetos de uma lista escritos pelo tratador XML, como um documento analisado.
void GravarObjetosDentro(TGISObjetoList &lista, pugi::xml_node destino, const QString &nomeCamada)
{
    const TClasseTratador *classe = nullptr;
    if (!TGISObjetoList::ObterRefClassPeloTipo(TRATADOR_DOS_OBJETOS, classe) || !classe)
        throw EConvertError(QStringLiteral("Não há tratador \"XML\" registrado para gravar os objetos da camada \"%1\"").arg(nomeCamada));
    QTemporaryDir pasta;
    if (!pasta.isValid())
        throw EInOutError(QStringLiteral("Não foi possível criar a pasta temporária: %1").arg(pasta.errorString()));
    const QString nome = pasta.filePath(QStringLiteral("objetos.xml"));
    // O tratador direto, e não `TGISObjetoList::Gravar`: o arquivo temporário não vira a origem da lista.
    classe->Criar(lista)->Gravar(nome);
    pugi::xml_document objetos;
    const pugi::xml_parse_result r = objetos.load_file(QFile::encodeName(nome).constData());
    if (!r)
        throw EConvertError(QStringLiteral("Os objetos da camada \"%1\" não formam XML válido (%2); ligue ESCAPAR_TEXTOS")
                                .arg(nomeCamada, Q(r.description())));
    destino.append_copy(objetos.document_element());
}

void LerObjetosDentro(pugi::xml_node origem, TGISObjetoList &lista, const QString &documento, const QString &nomeCamada)
{
    QTemporaryDir pasta;
    if (!pasta.isValid())
        throw EInOutError(QStringLiteral("Não foi possível criar a pasta temporária: %1").arg(pasta.errorString()));
    const QString nome = pasta.filePath(QStringLiteral("objetos.xml"));
    pugi::xml_document objetos;
    pugi::xml_node declaracao = objetos.append_child(pugi::node_declaration);
    declaracao.append_attribute("version") = "1.0";
    declaracao.append_attribute("encoding") = "UTF-8";
    objetos.append_copy(origem);
    if (!objetos.save_file(QFile::encodeName(nome).constData(), "  ", pugi::format_default, pugi::encoding_utf8))
        throw EInOutError(QStringLiteral("Não foi possível escrever na pasta temporária %1").arg(pasta.path()));
    try {
        if (!lista.Ler(nome, TRATADOR_DOS_OBJETOS))
            throw EConvertError(QStringLiteral("não há tratador \"XML\" registrado"));
    } catch (const Exception &e) {
        throw EInOutError(QStringLiteral("Não foi possível ler os objetos da camada \"%1\" de %2: %3")
                              .arg(nomeCamada, documento, e.Message()));
    }
    lista.AtribuirNomeArquivo(QString()); // continuam sendo objetos do documento
    lista.AtribuirTipoArquivo(QString());
}

void GravarCaneta(pugi::xml_node no, const TPen &caneta)
{
    Atributo(no, "Cor", caneta.Color);
    Atributo(no, "Largura", caneta.Width);
    Atributo(no, "Estilo", caneta.Style);
}

void GravarFonte(pugi::xml_node no, const TFont &fonte)
{
    Atributo(no, "Nome", fonte.Name);
    Atributo(no, "Altura", fonte.Height());
    Atributo(no, "Cor", fonte.Color);
    Atributo(no, "Conjunto", fonte.Charset);
    Atributo(no, "Estilo", fonte.Style);
    Atributo(no, "Escapamento", fonte.Escapement);
}

TFont LerFonte(const TLeitor &l, pugi::xml_node no)
{
    TFont fonte;
    fonte.Name = l.Texto(no, "Nome");
    fonte.SetHeight(static_cast<int>(l.Inteiro(no, "Altura", -1000, 1000)));
    fonte.Color = l.Cor(no, "Cor");
    fonte.Charset = static_cast<int>(l.Inteiro(no, "Conjunto", 0, 255));
    fonte.Style = static_cast<TFontStyles>(l.Inteiro(no, "Estilo", 0, 15));
    fonte.Escapement = static_cast<int>(l.Inteiro(no, "Escapamento", -3600, 3600));
    return fonte;
}

// Um valor das opções de leitura: o texto e o nome do tipo, que a leitura converte de volta.
void GravarOpcoes(pugi::xml_node arquivo, const QVariantMap &opcoes)
{
    for (auto i = opcoes.cbegin(); i != opcoes.cend(); ++i) {
        pugi::xml_node opcao = arquivo.append_child("OPCAO");
        Atributo(opcao, "Nome", i.key());
        Atributo(opcao, "Tipo", Q(i.value().metaType().name() ? i.value().metaType().name() : "QString"));
        Atributo(opcao, "Valor", i.value().toString());
    }
}

QVariantMap LerOpcoes(const TLeitor &l, pugi::xml_node arquivo)
{
    QVariantMap opcoes;
    for (pugi::xml_node opcao : arquivo.children("OPCAO")) {
        QVariant valor(l.Texto(opcao, "Valor"));
        const QMetaType tipo = QMetaType::fromName(l.Texto(opcao, "Tipo").toUtf8());
        if (tipo.isValid() && tipo != valor.metaType() && !valor.convert(tipo))
            l.Erro(QStringLiteral("a opção %1 não é um %2").arg(l.Texto(opcao, "Nome"), Q(tipo.name())));
        opcoes.insert(l.Texto(opcao, "Nome"), valor);
    }
    return opcoes;
}

// Os caminhos dos arquivos referidos, relativos à pasta do documento; os recursos embutidos do
// aplicativo (":/...") ficam como estão.
bool Recurso(const QString &caminho) { return caminho.startsWith(QLatin1Char(':')); }
QString CaminhoGuardado(const QDir &pasta, const QString &caminho)
{
    return Recurso(caminho) ? caminho : QDir::fromNativeSeparators(pasta.relativeFilePath(QFileInfo(caminho).absoluteFilePath()));
}
QString CaminhoLido(const QDir &pasta, const QString &caminho)
{
    return Recurso(caminho) ? caminho : QDir::cleanPath(pasta.absoluteFilePath(caminho));
}

// Visibilidade dos objetos e dos rótulos deles numa camada: a da maioria (empate: visível).
void Visibilidades(const TGISObjetoList &lista, bool &objetos, bool &rotulos)
{
    int vis = 0, rot = 0, n = 0;
    for (int i = 0; i < lista.Count(); ++i)
        if (const TGISObjeto *o = lista.Items(i)) {
            ++n;
            vis += o->Visivel() ? 1 : 0;
            rot += o->RotuloVisivel() ? 1 : 0;
        }
    objetos = n == 0 || 2 * vis >= n;
    rotulos = n == 0 || 2 * rot >= n;
}

} // namespace

void TDocumentoDoMapa::Gravar(TGis &gis, const QString &nomeArquivo)
{
    const QDir pastaDoDocumento = QFileInfo(nomeArquivo).absoluteDir();
    pugi::xml_document doc;
    pugi::xml_node declaracao = doc.append_child(pugi::node_declaration);
    declaracao.append_attribute("version") = "1.0";
    declaracao.append_attribute("encoding") = "UTF-8";
    pugi::xml_node raiz = doc.append_child(RAIZ);
    raiz.append_attribute("Versao") = VERSAO;

    pugi::xml_node visao = raiz.append_child("VISAO");
    const TGISPosicao centro = gis.Projecao()->Centro();
    Atributo(visao, "Latitude", centro.Latitude);
    Atributo(visao, "Longitude", centro.Longitude);
    AtributoReal(visao, "Zoom", gis.Zoom());

    pugi::xml_node controle = raiz.append_child("CONTROLE");
    Atributo(controle, "Cor", gis.Color());
    Atributo(controle, "CorDoHalo", gis.CorDoHalo());
    AtributoLogico(controle, "RotulosSemSobreposicao", gis.RotulosSemSobreposicao());
    AtributoLogico(controle, "SetaNoCentroDaArea", gis.SetaNoCentroDaArea());
    AtributoLogico(controle, "MostrarEscala", gis.MostrarEscala());
    GravarFonte(controle.append_child("FONTE_ROTULO"), gis.FonteRotulo());
    for (int i = 0; i < gis.Rotulos().Count(); ++i)
        Atributo(controle.append_child("ROTULO"), "Campo", gis.Rotulos().Strings(i));

    for (int i = 0; i < gis.Camadas().Count(); ++i) {
        TGISCamada *camada = gis.Camadas().Items(i);
        if (!camada)
            continue;
        pugi::xml_node no = raiz.append_child("CAMADA_DO_MAPA");
        Atributo(no, "Nome", camada->Nome());
        Atributo(no, "Tipo", camada->Tipo());
        AtributoLogico(no, "Visivel", camada->Visivel());
        AtributoReal(no, "ZoomMinimo", camada->ZoomMinimo());
        AtributoReal(no, "ZoomMaximo", camada->ZoomMaximo());
        Atributo(no, "Cor", camada->CorAtribuida() ? camada->Cor() : TColor(clNone));
        bool objetos = true, rotulos = true;
        Visibilidades(camada->Objetos(), objetos, rotulos);
        AtributoLogico(no, "ObjetosVisiveis", objetos);
        AtributoLogico(no, "RotulosVisiveis", rotulos);
        GravarCaneta(no.append_child("CANETA"), camada->Caneta());
        pugi::xml_node pincel = no.append_child("PINCEL");
        Atributo(pincel, "Cor", camada->Pincel().Color);
        Atributo(pincel, "Estilo", camada->Pincel().Style);

        const TGISObjetoList &lista = camada->Objetos();
        const QFileInfo origem(lista.NomeArquivo());
        if (!lista.NomeArquivo().isEmpty() && !lista.TipoArquivo().isEmpty() && lista.MesmosObjetosDaOrigem()
            && origem.isFile()) {
            pugi::xml_node arquivo = no.append_child("ARQUIVO");
            Atributo(arquivo, "Caminho", CaminhoGuardado(pastaDoDocumento, lista.NomeArquivo()));
            Atributo(arquivo, "Tratador", lista.TipoArquivo());
            GravarOpcoes(arquivo, lista.OpcoesDeLeitura());
        } else {
            GravarObjetosDentro(camada->Objetos(), no.append_child("OBJETOS"), camada->Nome());
        }
    }

    std::ostringstream saida;
    doc.save(saida, "  ", pugi::format_default, pugi::encoding_utf8);
    const std::string bytes = saida.str();
    const QString motivo = GravarArquivoComum(nomeArquivo, QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
    if (!motivo.isEmpty())
        throw EInOutError(QStringLiteral("Não foi possível gravar o mapa em %1: %2").arg(nomeArquivo, motivo));
}

void TDocumentoDoMapa::Ler(TGis &gis, const QString &nomeArquivo)
{
    const std::unique_ptr<QFile> arquivo = AbrirArquivoComum(nomeArquivo);
    if (!arquivo)
        throw EInOutError(QStringLiteral("O mapa %1 não existe").arg(nomeArquivo));
    if (arquivo->size() > TamanhoMaximo)
        throw EInOutError(QStringLiteral("O mapa %1 é grande demais para um documento de mapa").arg(nomeArquivo));
    const QByteArray bytes = arquivo->readAll();
    pugi::xml_document doc;
    const pugi::xml_parse_result r = doc.load_buffer(bytes.constData(), static_cast<size_t>(bytes.size()));
    const TLeitor l(nomeArquivo);
    if (!r)
        l.Erro(QStringLiteral("%1 no byte %2").arg(Q(r.description())).arg(r.offset));
    const pugi::xml_node raiz = doc.document_element();
    if (QString::fromUtf8(raiz.name()) != Q(RAIZ))
        l.Erro(QStringLiteral("a raiz não é %1").arg(Q(RAIZ)));
    if (QString::fromUtf8(raiz.attribute("Versao").value()) != Q(VERSAO))
        l.Erro(QStringLiteral("versão %1 desconhecida").arg(Q(raiz.attribute("Versao").value())));

    // Tudo é lido e conferido antes de tocar no controle.
    const QDir pastaDoDocumento = QFileInfo(nomeArquivo).absoluteDir();
    std::vector<std::unique_ptr<TGISCamada>> camadas;
    for (pugi::xml_node no : raiz.children("CAMADA_DO_MAPA")) {
        auto camada = std::make_unique<TGISCamada>(l.Texto(no, "Nome"));
        camada->AtribuirTipo(static_cast<TGISTipoCamada>(l.Inteiro(no, "Tipo", gtcPanoDeFundo, gtcEditavel)));
        camada->AtribuirVisivel(l.Logico(no, "Visivel"));
        camada->AtribuirZoomMinimo(l.Real(no, "ZoomMinimo"));
        camada->AtribuirZoomMaximo(l.Real(no, "ZoomMaximo"));
        const pugi::xml_node caneta = l.Filho(no, "CANETA");
        camada->Caneta().Color = l.Cor(caneta, "Cor");
        camada->Caneta().Width = static_cast<int>(l.Inteiro(caneta, "Largura", 0, 1000));
        camada->Caneta().Style = static_cast<TPenStyle>(l.Inteiro(caneta, "Estilo", psSolid, psInsideFrame));
        const pugi::xml_node pincel = l.Filho(no, "PINCEL");
        camada->Pincel().Color = l.Cor(pincel, "Cor");
        camada->Pincel().Style = static_cast<TBrushStyle>(l.Inteiro(pincel, "Estilo", bsSolid, bsDiagCross));

        if (const pugi::xml_node ref = no.child("ARQUIVO")) {
            const QString caminho = CaminhoLido(pastaDoDocumento, l.Texto(ref, "Caminho"));
            const QString tipo = l.Texto(ref, "Tratador");
            const QVariantMap opcoes = LerOpcoes(l, ref);
            bool lido = false;
            try {
                lido = camada->Objetos().Ler(caminho, tipo, opcoes);
            } catch (const Exception &e) {
                throw EInOutError(QStringLiteral("Não foi possível ler %1 (camada \"%2\"): %3").arg(caminho, camada->Nome(), e.Message()));
            }
            if (!lido)
                throw EInOutError(QStringLiteral("Não foi possível ler %1 (camada \"%2\"): não há tratador \"%3\" registrado")
                                      .arg(caminho, camada->Nome(), tipo));
        } else {
            const pugi::xml_node objetos = l.Filho(no, "OBJETOS").first_child();
            if (objetos.type() != pugi::node_element)
                l.Erro(QStringLiteral("a camada \"%1\" não tem ARQUIVO nem objetos").arg(camada->Nome()));
            LerObjetosDentro(objetos, camada->Objetos(), nomeArquivo, camada->Nome());
        }
        // A cor da camada vale por cima das cores dos objetos, como quando foi atribuída.
        const TColor cor = l.Cor(no, "Cor");
        if (cor != clNone)
            camada->AtribuirCor(cor);
        camada->Visibilidade(l.Logico(no, "ObjetosVisiveis"), l.Logico(no, "RotulosVisiveis"));
        camadas.push_back(std::move(camada));
    }

    const pugi::xml_node controle = l.Filho(raiz, "CONTROLE");
    const TColor corDeFundo = l.Cor(controle, "Cor");
    const TColor corDoHalo = l.Cor(controle, "CorDoHalo");
    const bool semSobreposicao = l.Logico(controle, "RotulosSemSobreposicao");
    const bool setaNoCentro = l.Logico(controle, "SetaNoCentroDaArea");
    const bool escala = l.Logico(controle, "MostrarEscala");
    const TFont fonte = LerFonte(l, l.Filho(controle, "FONTE_ROTULO"));
    QStringList rotulos;
    for (pugi::xml_node rotulo : controle.children("ROTULO"))
        rotulos.append(l.Texto(rotulo, "Campo"));
    const pugi::xml_node visao = l.Filho(raiz, "VISAO");
    const TGISPosicao centro = GISPosicao(static_cast<std::int32_t>(l.Inteiro(visao, "Latitude", -324000, 324000)),
                                          static_cast<std::int32_t>(l.Inteiro(visao, "Longitude", -648000, 648000)));
    const double zoom = l.Real(visao, "Zoom");

    // Daqui em diante nada falha: o mapa de rascunho vira o mapa.
    gis.Limpar();
    for (auto &camada : camadas)
        gis.Camadas().Add(camada.release());
    gis.AtribuirColor(corDeFundo);
    gis.AtribuirCorDoHalo(corDoHalo);
    gis.AtribuirRotulosSemSobreposicao(semSobreposicao);
    gis.AtribuirSetaNoCentroDaArea(setaNoCentro);
    gis.AtribuirMostrarEscala(escala);
    gis.FonteRotulo() = fonte;
    gis.AtribuirTextosRotulos(rotulos);
    gis.Projecao()->AtribuirCentro(centro);
    gis.AtribuirZoom(zoom); // redesenha e avisa a visão nova
}

} // namespace tavru

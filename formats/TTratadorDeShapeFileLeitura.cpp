// A leitura de Shapefiles: registro a registro pelo shapelib, atributos do ".dbf", coordenadas
// pelo ".prj" e cores pelo ".cor".

#include <tavru/formats/TTratadorDeShapeFile.h>

#include "ArquivosShapeFile_p.h"
#include "CodificacaoDBF_p.h"
#include "ConversorPrj_p.h"
#include "CoresShapeFile_p.h"

#include <tavru/core/Arredondar.h>
#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISAreaComFuros.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/platform/Exception.h>

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <vector>

namespace tavru {

using namespace shp;

namespace {

struct TFecharShp
{
    void operator()(SHPInfo *h) const { SHPClose(h); }
};
struct TFecharDbf
{
    void operator()(DBFInfo *h) const { DBFClose(h); }
};
struct TDestruirForma
{
    void operator()(SHPObject *o) const { SHPDestroyObject(o); }
};

// Um .cpg é uma palavra; mais que isto não é um .cpg.
constexpr qint64 TamanhoMaximoCpg = 1024;

// O arquivo irmão com a extensão dada, em minúsculas ou em maiúsculas (o que existir).
QString Irmao(const QString &base, const char *extensao)
{
    const QString minusculas = base + QLatin1String(extensao);
    if (QFileInfo::exists(minusculas))
        return minusculas;
    const QString maiusculas = base + QString::fromLatin1(extensao).toUpper();
    return QFileInfo::exists(maiusculas) ? maiusculas : minusculas;
}

TCodificacaoDBF Codificacao(const QString &base, const DBFInfo *dbf)
{
    TCodificacaoDBF c = cdLatin1;
    QFile cpg(Irmao(base, ".cpg"));
    if (cpg.size() <= TamanhoMaximoCpg && cpg.open(QIODevice::ReadOnly) && CodificacaoDoCpg(cpg.readAll(), c))
        return c;
    if (CodificacaoDoByte(dbf->iLanguageDriver, c))
        return c;
    return cdLatin1;
}

// Graus (já convertidos) para segundos de arco; falso fora de ±180/±90 (com uma folga de
// arredondamento, cortada no limite).
bool ParaSegundos(double longitude, double latitude, TGISPosicao &p)
{
    constexpr double Folga = 1e-6;
    if (!(longitude >= -180.0 - Folga && longitude <= 180.0 + Folga && latitude >= -90.0 - Folga
          && latitude <= 90.0 + Folga))
        return false;
    p.Longitude = std::clamp(Arredondar(longitude * 3600.0), -648000, 648000);
    p.Latitude = std::clamp(Arredondar(latitude * 3600.0), -324000, 324000);
    return true;
}

QString ListaDeRegistros(const std::vector<int> &registros)
{
    constexpr std::size_t Mostrados = 20;
    QStringList numeros;
    for (std::size_t i = 0; i < registros.size() && i < Mostrados; ++i)
        numeros.append(QString::number(registros[i]));
    QString texto = numeros.join(QLatin1String(", "));
    if (registros.size() > Mostrados)
        texto += QStringLiteral(" e mais %1").arg(registros.size() - Mostrados);
    return texto;
}

// Um leitor de um Shapefile aberto: os arquivos, a conversão de coordenadas e as cores.
class TLeitor
{
public:
    TLeitor(const QString &nomeArquivo, TArquivosShapeFile &arquivos);

    // Os objetos do registro `indice` (0 o primeiro), ou falso quando ele está corrompido.
    bool Objetos(int indice, std::vector<std::unique_ptr<TGISObjeto>> &objetos);
    int Registros() const { return FRegistros; }

private:
    void Atributos(int indice, TInformacoes &informacoes);
    // Os vértices `inicio` a `fim` - 1 (já em graus) em segundos de arco; falso fora do mundo.
    bool Pontos(SHPObject &forma, int inicio, int fim, TGISPosicao *pontos) const;

    QString FNomeShp;
    std::unique_ptr<SHPInfo, TFecharShp> FShp;
    std::unique_ptr<DBFInfo, TFecharDbf> FDbf;
    std::unique_ptr<TConversorPrj> FConversor;
    TCodificacaoDBF FCodificacao = cdLatin1;
    QStringList FCampos;
    std::unique_ptr<TCoresShapeFile> FCores;
    int FRegistros = 0;
    int FTipo = SHPT_NULL;
};

TLeitor::TLeitor(const QString &nomeArquivo, TArquivosShapeFile &arquivos) : FNomeShp(nomeArquivo)
{
    const QFileInfo info(nomeArquivo);
    if (!info.isFile())
        throw EFilerError(QStringLiteral("O arquivo especificado não existe ou não está disponível!"));
    const QString base = info.path() + QLatin1Char('/') + info.completeBaseName();
    const QString nome = info.fileName();

    FShp.reset(SHPOpenLL(NomeParaShapelib(nomeArquivo).c_str(), "rb", arquivos.Ganchos()));
    if (!FShp && QFileInfo::exists(Irmao(base, ".shx"))) {
        // Um .shx que não se lê (cortado, de outro .shp) é refeito em memória, como o que falta.
        QByteArray shx = RefazerShx(nomeArquivo);
        if (!shx.isEmpty()) {
            arquivos.Memoria[NomeParaShapelib(base + QLatin1String(".shx"))] = std::move(shx);
            arquivos.Erros.clear();
            FShp.reset(SHPOpenLL(NomeParaShapelib(nomeArquivo).c_str(), "rb", arquivos.Ganchos()));
        }
    }
    if (!FShp)
        throw EFilerError(QStringLiteral("O arquivo \"%1\" não é um Shapefile que se leia (%2).")
                              .arg(nome, arquivos.Erros.isEmpty() ? QStringLiteral("cabeçalho ou índice inválido")
                                                                  : arquivos.Erros.join(QLatin1String("; "))));
    SHPSetFastModeReadObject(FShp.get(), 1);
    double minimo[4], maximo[4];
    SHPGetInfo(FShp.get(), &FRegistros, &FTipo, minimo, maximo);
    switch (FTipo) {
    case SHPT_NULL: case SHPT_POINT: case SHPT_POINTZ: case SHPT_POINTM:
    case SHPT_ARC: case SHPT_ARCZ: case SHPT_ARCM:
    case SHPT_POLYGON: case SHPT_POLYGONZ: case SHPT_POLYGONM:
    case SHPT_MULTIPOINT: case SHPT_MULTIPOINTZ: case SHPT_MULTIPOINTM:
        break;
    default:
        throw EFilerError(QStringLiteral("O Shapefile \"%1\" tem formas do tipo %2, que não são lidas (só pontos, "
                                         "multipontos, linhas e polígonos).")
                              .arg(nome)
                              .arg(FTipo));
    }
    FConversor = std::make_unique<TConversorPrj>(nomeArquivo, Irmao(base, ".prj"), minimo[0], minimo[1], maximo[0],
                                                 maximo[1]);

    const QString nomeDbf = Irmao(base, ".dbf");
    if (QFileInfo::exists(nomeDbf)) {
        FDbf.reset(DBFOpenLL(NomeParaShapelib(nomeDbf).c_str(), "rb", arquivos.Ganchos()));
        if (!FDbf)
            throw EFilerError(QStringLiteral("O arquivo de atributos \"%1\" não pôde ser lido.")
                                  .arg(QFileInfo(nomeDbf).fileName()));
        FCodificacao = Codificacao(base, FDbf.get());
        for (int i = 0; i < DBFGetFieldCount(FDbf.get()); ++i) {
            char campo[XBASE_FLDNAME_LEN_READ + 1] = {};
            DBFGetFieldInfo(FDbf.get(), i, campo, nullptr, nullptr);
            FCampos.append(Decodificar(campo, static_cast<int>(qstrlen(campo)), FCodificacao).trimmed());
        }
    }
    const QString nomeCor = Irmao(base, ".cor");
    if (QFileInfo::exists(nomeCor)) {
        FCores = std::make_unique<TCoresShapeFile>();
        FCores->Ler(nomeCor);
    }
}

void TLeitor::Atributos(int indice, TInformacoes &informacoes)
{
    if (!FDbf || indice >= DBFGetRecordCount(FDbf.get()))
        return;
    for (int i = 0; i < FCampos.size(); ++i) {
        const char *valor = DBFReadStringAttribute(FDbf.get(), indice, i);
        const QString texto = valor ? Decodificar(valor, static_cast<int>(qstrlen(valor)), FCodificacao).trimmed()
                                    : QString();
        informacoes.AdicionarCampo(FCampos[i], texto);
    }
}

bool TLeitor::Pontos(SHPObject &forma, int inicio, int fim, TGISPosicao *pontos) const
{
    for (int i = inicio; i < fim; ++i)
        if (!ParaSegundos(forma.padfX[i], forma.padfY[i], *pontos++))
            return false;
    return true;
}

bool TLeitor::Objetos(int indice, std::vector<std::unique_ptr<TGISObjeto>> &objetos)
{
    objetos.clear();
    // Modo rápido: os vetores da forma são do shapelib, reaproveitados a cada registro (o
    // SHPDestroyObject só os devolve).
    std::unique_ptr<SHPObject, TDestruirForma> forma(SHPReadObject(FShp.get(), indice));
    if (!forma)
        return false;
    if (forma->nSHPType == SHPT_NULL || forma->nVertices <= 0)
        return true; // forma nula: pulada
    // Um registro de outro tipo que o do arquivo é tido como corrompido.
    const auto familia = [](int t) { return t % 10; };
    if (familia(forma->nSHPType) != familia(FTipo) || !forma->padfX || !forma->padfY)
        return false;
    // Em graus, no lugar (os vetores da forma são do shapelib, reescritos a cada registro).
    if (!FConversor->Converter(forma->padfX, forma->padfY, forma->nVertices))
        return false;
    TInformacoes informacoes;
    Atributos(indice, informacoes);

    const int n = forma->nVertices;
    switch (familia(FTipo)) {
    case SHPT_POINT:
    case SHPT_MULTIPOINT:
        for (int i = 0; i < n; ++i) {
            TGISPosicao posicao;
            if (!Pontos(*forma, i, i + 1, &posicao))
                return false;
            auto ponto = std::make_unique<TGISPonto>();
            ponto->AtribuirPosicao(posicao);
            ponto->AtribuirInformacoes(informacoes);
            objetos.push_back(std::move(ponto));
            if (familia(FTipo) == SHPT_POINT)
                break;
        }
        break;
    default: {
        // As partes em ordem, cada uma dentro dos vértices; senão o registro está corrompido.
        const int partes = forma->nParts > 0 ? forma->nParts : 1;
        std::unique_ptr<TGISLinha> linha;
        if (familia(FTipo) == SHPT_POLYGON)
            linha = std::make_unique<TGISAreaComFuros>();
        else
            linha = std::make_unique<TGISLinha>();
        for (int p = 0; p < partes; ++p) {
            const int inicio = forma->nParts > 0 ? forma->panPartStart[p] : 0;
            const int fim = p + 1 < partes ? forma->panPartStart[p + 1] : n;
            if (inicio < 0 || inicio > fim || fim > n || (p == 0 && inicio != 0))
                return false;
            if (inicio == fim)
                continue;
            auto *lista = new TGISPosicaoList;
            linha->Pontos().Add(lista);
            lista->Redimensionar(fim - inicio);
            if (!Pontos(*forma, inicio, fim, lista->Dados()))
                return false;
        }
        linha->CalcularLimites();
        linha->AtribuirInformacoes(informacoes);
        objetos.push_back(std::move(linha));
        break;
    }
    }
    if (FCores) {
        const TCores cores = FCores->Do(indice + 1, informacoes);
        for (auto &o : objetos)
            TCoresShapeFile::Aplicar(cores, *o);
    }
    return true;
}

} // namespace

void TTratadorDeShapeFile::Ler(const QString &nomeArquivo)
{
    TArquivosShapeFile arquivos(false);
    TAtivarArquivos ativar(arquivos);
    TLeitor leitor(nomeArquivo, arquivos);

    std::vector<int> ruins;
    std::vector<std::unique_ptr<TGISObjeto>> objetos;
    TGISObjetoList &lista = Lista();
    for (int i = 0; i < leitor.Registros(); ++i) {
        AvisarProgresso(static_cast<double>(i) / leitor.Registros(), lista.Count());
        if (!leitor.Objetos(i, objetos)) {
            ruins.push_back(i + 1);
            continue;
        }
        for (auto &objeto : objetos) {
            bool aceitar = true;
            if (FOpcoes.AoValidar) {
                try {
                    FOpcoes.AoValidar(*objeto, i + 1, objeto->Informacoes(), aceitar);
                } catch (...) {
                    lista.CalcularLimites();
                    throw;
                }
            }
            if (aceitar)
                lista.Add(objeto.release());
        }
    }
    lista.CalcularLimites();
    if (!ruins.empty())
        throw EFilerError(QStringLiteral("O Shapefile \"%1\" tem %2 registro(s) corrompido(s), que não foram lidos: %3. "
                                         "Os outros registros foram lidos.")
                              .arg(QFileInfo(nomeArquivo).fileName())
                              .arg(ruins.size())
                              .arg(ListaDeRegistros(ruins)));
}

} // namespace tavru

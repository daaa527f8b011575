// A gravação de Shapefiles: um conjunto de arquivos por tipo de forma, montado em memória pelo
// shapelib (ganchos de TArquivosShapeFile) e só então escrito ao lado e renomeado.

#include <tavru/formats/TTratadorDeShapeFile.h>

#include "ArquivosShapeFile_p.h"
#include "CoresShapeFile_p.h"

#include <tavru/core/TGISObjetoList.h>
#include <tavru/elements/GISArea.h>
#include <tavru/elements/GISAreaCircular.h>
#include <tavru/elements/GISAreaComFuros.h>
#include <tavru/elements/GISLinha.h>
#include <tavru/elements/GISPonto.h>
#include <tavru/elements/GISPontosTrajeto.h>
#include <tavru/elements/GISTrajeto.h>
#include <tavru/platform/Exception.h>

#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <memory>
#include <vector>

namespace tavru {

using namespace shp;

namespace {

enum TTipoDeForma { tfPonto, tfLinha, tfArea, tfNenhum };

TTipoDeForma TipoDe(const TGISObjeto &o)
{
    if (dynamic_cast<const TGISPonto *>(&o))
        return tfPonto;
    if (dynamic_cast<const TGISAreaCircular *>(&o) || dynamic_cast<const TGISArea *>(&o))
        return tfArea;
    if (dynamic_cast<const TGISLinha *>(&o) || dynamic_cast<const TGISTrajeto *>(&o))
        return tfLinha; // linhas, derrotas, corredores (linha do centro) e trajetos
    return tfNenhum;
}

const char *const Sufixos[] = {"_pontos", "_linhas", "_areas"};
const int TiposShapelib[] = {SHPT_POINT, SHPT_ARC, SHPT_POLYGON};

// WGS 84 geográfico, em WKT do ESRI (o que os programas de Shapefile esperam num .prj).
const char *const PrjWgs84 =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],"
    "PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";

// Os anéis de um objeto, em posições absolutas.
using TAneis = std::vector<std::vector<TGISPosicao>>;

TAneis AneisDe(const TGISObjeto &o)
{
    TAneis aneis;
    if (auto *circular = dynamic_cast<const TGISAreaCircular *>(&o)) {
        const TGISPosicaoList &contorno = circular->Contorno();
        aneis.emplace_back(contorno.begin(), contorno.end());
    } else if (auto *trajeto = dynamic_cast<const TGISTrajeto *>(&o)) {
        aneis.emplace_back();
        for (int i = 0; i < trajeto->Pontos().Count(); ++i)
            aneis.back().push_back(trajeto->ObterGISPosicao(i));
    } else if (auto *linha = dynamic_cast<const TGISLinha *>(&o)) {
        for (int p = 0; p < linha->Pontos().Count(); ++p) {
            const int n = linha->Pontos().Items(p)->Count();
            if (n == 0)
                continue;
            aneis.emplace_back();
            aneis.back().reserve(static_cast<std::size_t>(n));
            for (int i = 0; i < n; ++i)
                aneis.back().push_back(linha->ObterPonto(p, i));
        }
    }
    return aneis;
}

// Duas vezes a área com sinal (longitude = x, latitude = y): positiva no sentido anti-horário.
double AreaComSinal(const std::vector<TGISPosicao> &anel)
{
    double soma = 0.0;
    for (std::size_t i = 0, n = anel.size(); i < n; ++i) {
        const TGISPosicao &a = anel[i], &b = anel[(i + 1) % n];
        soma += double(a.Longitude) * b.Latitude - double(b.Longitude) * a.Latitude;
    }
    return soma;
}

bool Dentro(const TGISPosicao &p, const std::vector<TGISPosicao> &anel)
{
    bool dentro = false;
    for (std::size_t i = 0, j = anel.size() - 1; i < anel.size(); j = i++) {
        const TGISPosicao &a = anel[i], &b = anel[j];
        if ((a.Latitude > p.Latitude) != (b.Latitude > p.Latitude)
            && p.Longitude < double(b.Longitude - a.Longitude) * (p.Latitude - a.Latitude) / double(b.Latitude - a.Latitude)
                                 + a.Longitude)
            dentro = !dentro;
    }
    return dentro;
}

// Fecha cada anel e o põe no sentido do formato: anel externo horário, furo anti-horário. Numa
// área com furos, um anel é furo quando está dentro de um número ímpar de outros; numa área
// comum, todo anel é externo (cada parte é preenchida por si).
void OrientarAneis(TAneis &aneis, bool comFuros)
{
    for (auto &anel : aneis)
        if (anel.front() != anel.back())
            anel.push_back(anel.front());
    std::vector<bool> furo(aneis.size(), false);
    if (comFuros)
        for (std::size_t i = 0; i < aneis.size(); ++i)
            for (std::size_t j = 0; j < aneis.size(); ++j)
                if (i != j && Dentro(aneis[i].front(), aneis[j]))
                    furo[i] = !furo[i];
    for (std::size_t i = 0; i < aneis.size(); ++i)
        if ((AreaComSinal(aneis[i]) > 0) != furo[i])
            std::reverse(aneis[i].begin(), aneis[i].end());
}

// Corta um texto UTF-8 em `maximo` bytes sem partir um caractere.
QByteArray CortarUtf8(QByteArray bytes, int maximo)
{
    if (bytes.size() <= maximo)
        return bytes;
    int n = maximo;
    while (n > 0 && (static_cast<unsigned char>(bytes[n]) & 0xC0) == 0x80)
        --n;
    bytes.truncate(n);
    return bytes;
}

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

// Monta em `arquivos.Memoria` o conjunto `base` (".shp", ".shx", ".dbf") dos objetos dados.
void MontarConjunto(TArquivosShapeFile &arquivos, const std::string &base, TTipoDeForma tipo,
                    const std::vector<const TGISObjeto *> &objetos, TCoresShapeFile &cores)
{
    std::unique_ptr<SHPInfo, TFecharShp> shp(SHPCreateLL((base + ".shp").c_str(), TiposShapelib[tipo], arquivos.Ganchos()));
    std::unique_ptr<DBFInfo, TFecharDbf> dbf(DBFCreateLL((base + ".dbf").c_str(), nullptr, arquivos.Ganchos()));
    if (!shp || !dbf)
        throw EInOutError(QStringLiteral("O Shapefile não pôde ser montado: %1").arg(arquivos.Erros.join(QLatin1String("; "))));

    // Campos: os rótulos das informações, na ordem em que aparecem, cada um com a largura do
    // maior valor (1 a 254 bytes).
    QStringList rotulos;
    std::vector<int> larguras;
    for (const TGISObjeto *o : objetos) {
        const TInformacoes &info = o->Informacoes();
        for (int i = 0; i < info.ObterTotal(); ++i) {
            int campo = rotulos.indexOf(info.ObterNomeCampo(i));
            if (campo < 0) {
                rotulos.append(info.ObterNomeCampo(i));
                larguras.push_back(1);
                campo = static_cast<int>(rotulos.size()) - 1;
            }
            larguras[campo] = std::clamp(static_cast<int>(info.ObterValorCampo(i).toUtf8().size()), larguras[campo], 254);
        }
    }
    QList<QByteArray> nomes;
    for (int c = 0; c < rotulos.size(); ++c) {
        QByteArray nome = CortarUtf8(rotulos[c].toUtf8(), XBASE_FLDNAME_LEN_WRITE);
        for (int n = 2; nome.isEmpty() || nomes.contains(nome); ++n) {
            const QByteArray numero = QByteArray::number(n);
            nome = CortarUtf8(rotulos[c].toUtf8(), XBASE_FLDNAME_LEN_WRITE - static_cast<int>(numero.size())) + numero;
        }
        nomes.append(nome);
        if (DBFAddField(dbf.get(), nome.constData(), FTString, larguras[static_cast<std::size_t>(c)], 0) < 0)
            throw EInOutError(QStringLiteral("O campo \"%1\" não pôde ser criado no .dbf.").arg(rotulos[c]));
    }

    // Um .dbf sem campos não guarda registros: sem informações, um campo "FID" com o número do
    // registro (0 o primeiro), como fazem outros programas.
    if (rotulos.isEmpty() && DBFAddField(dbf.get(), "FID", FTInteger, 11, 0) < 0)
        throw EInOutError(QStringLiteral("O campo \"FID\" não pôde ser criado no .dbf."));

    std::vector<double> x, y;
    std::vector<int> inicios;
    for (std::size_t r = 0; r < objetos.size(); ++r) {
        const TGISObjeto &o = *objetos[r];
        x.clear();
        y.clear();
        inicios.clear();
        if (tipo == tfPonto) {
            x.push_back(o.Posicao().Longitude / 3600.0);
            y.push_back(o.Posicao().Latitude / 3600.0);
        } else {
            TAneis aneis = AneisDe(o);
            if (tipo == tfArea)
                OrientarAneis(aneis, dynamic_cast<const TGISAreaComFuros *>(&o) != nullptr);
            for (const auto &anel : aneis) {
                inicios.push_back(static_cast<int>(x.size()));
                for (const TGISPosicao &p : anel) {
                    x.push_back(p.Longitude / 3600.0);
                    y.push_back(p.Latitude / 3600.0);
                }
            }
        }
        std::unique_ptr<SHPObject, TDestruirForma> forma(
            x.empty() ? SHPCreateSimpleObject(SHPT_NULL, 0, nullptr, nullptr, nullptr)
                      : SHPCreateObject(TiposShapelib[tipo], -1, static_cast<int>(inicios.size()), inicios.data(), nullptr,
                                        static_cast<int>(x.size()), x.data(), y.data(), nullptr, nullptr));
        const int registro = forma ? SHPWriteObject(shp.get(), -1, forma.get()) : -1;
        if (registro < 0)
            throw EInOutError(QStringLiteral("O registro %1 não pôde ser gravado no .shp.").arg(r + 1));
        const TInformacoes &info = o.Informacoes();
        for (int c = 0; c < rotulos.size(); ++c) {
            const int i = info.ObterIndiceCampo(rotulos[c]);
            const QByteArray valor = i >= 0 ? CortarUtf8(info.ObterValorCampo(i).toUtf8(), 254) : QByteArray();
            if (!DBFWriteStringAttribute(dbf.get(), registro, c, valor.constData()))
                throw EInOutError(QStringLiteral("O atributo \"%1\" do registro %2 não pôde ser gravado no .dbf.")
                                      .arg(rotulos[c])
                                      .arg(registro + 1));
        }
        if (rotulos.isEmpty() && !DBFWriteIntegerAttribute(dbf.get(), registro, 0, registro))
            throw EInOutError(QStringLiteral("O registro %1 não pôde ser gravado no .dbf.").arg(registro + 1));
        // Cores: as do primeiro registro são as gerais; os outros só dizem o que muda.
        const TCores dele = TCoresShapeFile::DoObjeto(o);
        if (r == 0) {
            cores.Geral = dele;
        } else {
            TCores muda;
            if (dele.Caneta != cores.Geral.Caneta)
                muda.Caneta = dele.Caneta;
            if (dele.Pincel != cores.Geral.Pincel)
                muda.Pincel = dele.Pincel;
            if (dele.EstiloPincel != cores.Geral.EstiloPincel)
                muda.EstiloPincel = dele.EstiloPincel;
            if (muda.Caneta || muda.Pincel || muda.EstiloPincel)
                cores.PorRegistro[registro + 1] = muda;
        }
    }
}

} // namespace

void TTratadorDeShapeFile::Gravar(const QString &nomeArquivo)
{
    const TGISObjetoList &lista = Lista();
    std::vector<const TGISObjeto *> porTipo[3];
    QStringList recusados;
    for (int i = 0; i < lista.Count(); ++i) {
        const TGISObjeto *o = lista.Items(i);
        const TTipoDeForma tipo = o ? TipoDe(*o) : tfNenhum;
        if (tipo == tfNenhum)
            recusados.append(QStringLiteral("%1 (%2)").arg(i).arg(o ? o->Classe().Nome() : QStringLiteral("nulo")));
        else
            porTipo[tipo].push_back(o);
    }
    if (!recusados.isEmpty())
        throw EInvalidOperation(QStringLiteral("Estes objetos não podem ser gravados num Shapefile (índice na lista e "
                                               "classe): %1. Nada foi gravado.")
                                    .arg(recusados.join(QLatin1String(", "))));

    const QFileInfo info(nomeArquivo);
    const QString base = info.suffix().compare(QLatin1String("shp"), Qt::CaseInsensitive) == 0
        ? info.path() + QLatin1Char('/') + info.completeBaseName()
        : info.filePath();
    int tipos = 0;
    for (const auto &objetos : porTipo)
        tipos += objetos.empty() ? 0 : 1;

    // Tudo em memória primeiro: nenhum arquivo é tocado antes de o conjunto inteiro estar pronto.
    TArquivosShapeFile arquivos(true);
    std::vector<std::pair<QString, QByteArray>> saida;
    {
        TAtivarArquivos ativar(arquivos);
        for (int t = tfPonto; t <= tfArea; ++t) {
            if (porTipo[t].empty() && !(tipos == 0 && t == tfPonto))
                continue;
            const QString nome = tipos > 1 ? base + QLatin1String(Sufixos[t]) : base;
            const std::string interno = "tavru-shapefile-" + std::to_string(t);
            TCoresShapeFile cores;
            MontarConjunto(arquivos, interno, static_cast<TTipoDeForma>(t), porTipo[t], cores);
            for (const char *extensao : {".shp", ".shx", ".dbf"})
                saida.emplace_back(nome + QLatin1String(extensao), arquivos.Memoria[interno + extensao]);
            saida.emplace_back(nome + QLatin1String(".prj"), QByteArray(PrjWgs84));
            saida.emplace_back(nome + QLatin1String(".cpg"), QByteArray("UTF-8"));
            saida.emplace_back(nome + QLatin1String(".cor"), cores.Texto());
        }
    }

    // Cada arquivo é escrito ao lado e só renomeado quando todos foram escritos.
    std::vector<std::unique_ptr<QSaveFile>> escritos;
    for (const auto &[nome, bytes] : saida) {
        auto arquivo = std::make_unique<QSaveFile>(nome);
        if (!arquivo->open(QIODevice::WriteOnly | QIODevice::Unbuffered) || arquivo->write(bytes) != bytes.size())
            throw EInOutError(QStringLiteral("Não foi possível gravar o arquivo \"%1\": %2. Nenhum arquivo foi trocado.")
                                  .arg(nome, arquivo->errorString()));
        escritos.push_back(std::move(arquivo));
    }
    for (auto &arquivo : escritos)
        if (!arquivo->commit())
            throw EInOutError(QStringLiteral("Não foi possível gravar o arquivo \"%1\": %2.")
                                  .arg(arquivo->fileName(), arquivo->errorString()));
}

} // namespace tavru

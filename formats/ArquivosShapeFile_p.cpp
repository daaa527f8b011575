#include "ArquivosShapeFile_p.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>

namespace tavru::shp {
namespace {

thread_local TArquivosShapeFile *Ativo = nullptr;

// Um arquivo aberto pelos ganchos: do disco (FILE*) ou em memória (um item de `Memoria`).
struct TAberto
{
    std::FILE *Disco = nullptr;
    QByteArray *Bytes = nullptr;
    SAOffset Posicao = 0;
};

SAFile ComoSAFile(TAberto *a)
{
    return reinterpret_cast<SAFile>(a);
}

TAberto *DoSAFile(SAFile f)
{
    return reinterpret_cast<TAberto *>(f);
}

bool TemFim(const std::string &nome, const char *fim)
{
    const std::size_t n = std::strlen(fim);
    if (nome.size() < n)
        return false;
    for (std::size_t i = 0; i < n; ++i)
        if (std::tolower(static_cast<unsigned char>(nome[nome.size() - n + i])) != fim[i])
            return false;
    return true;
}

bool ExisteNoDisco(const std::string &nome)
{
    return QFileInfo::exists(QFile::decodeName(QByteArray::fromStdString(nome)));
}

SAFile Abrir(const char *nomeC, const char *acesso)
{
    TArquivosShapeFile *ctx = Ativo;
    if (!ctx || !nomeC || !acesso)
        return nullptr;
    const std::string nome(nomeC);
    const bool escrita = std::strchr(acesso, 'w') || std::strchr(acesso, '+') || std::strchr(acesso, 'a');
    auto it = ctx->Memoria.find(nome);
    if (it == ctx->Memoria.end() && ctx->Gravacao && escrita)
        it = ctx->Memoria.emplace(nome, QByteArray()).first;
    if (it == ctx->Memoria.end() && !ctx->Gravacao && !escrita && TemFim(nome, ".shx") && !ExisteNoDisco(nome)) {
        // Sem índice: refeito em memória do ".shp" ao lado (nunca gravado junto dos arquivos do
        // usuário). O shapelib tenta ".shx" e depois ".SHX"; refaz só quando nenhum dos dois existe.
        const std::string base = nome.substr(0, nome.size() - 4);
        if (!ExisteNoDisco(base + ".shx") && !ExisteNoDisco(base + ".SHX")) {
            std::string shp = base + ".shp";
            if (!ExisteNoDisco(shp))
                shp = base + ".SHP";
            QByteArray shx = RefazerShx(QFile::decodeName(QByteArray::fromStdString(shp)));
            if (!shx.isEmpty()) {
                ++ctx->ShxRefeitos;
                it = ctx->Memoria.emplace(nome, std::move(shx)).first;
            }
        }
    }
    if (it != ctx->Memoria.end()) {
        auto *a = new TAberto;
        a->Bytes = &it->second;
        if (std::strchr(acesso, 'w'))
            a->Bytes->clear();
        return ComoSAFile(a);
    }
    if (escrita)
        return nullptr; // a leitura nunca escreve no disco
    std::FILE *f = std::fopen(nome.c_str(), "rb");
    if (!f)
        return nullptr;
    auto *a = new TAberto;
    a->Disco = f;
    return ComoSAFile(a);
}

SAOffset Ler(void *p, SAOffset tamanho, SAOffset quantos, SAFile f)
{
    TAberto *a = DoSAFile(f);
    if (a->Disco)
        return std::fread(p, tamanho, quantos, a->Disco);
    if (tamanho == 0)
        return 0;
    const SAOffset total = static_cast<SAOffset>(a->Bytes->size());
    const SAOffset resta = a->Posicao < total ? total - a->Posicao : 0;
    const SAOffset lidos = std::min(quantos, resta / tamanho);
    if (lidos > 0)
        std::memcpy(p, a->Bytes->constData() + a->Posicao, lidos * tamanho);
    a->Posicao += lidos * tamanho;
    return lidos;
}

SAOffset Escrever(void *p, SAOffset tamanho, SAOffset quantos, SAFile f)
{
    TAberto *a = DoSAFile(f);
    if (a->Disco)
        return 0;
    const SAOffset n = tamanho * quantos;
    if (a->Posicao + n > static_cast<SAOffset>(a->Bytes->size()))
        a->Bytes->resize(static_cast<qsizetype>(a->Posicao + n));
    std::memcpy(a->Bytes->data() + a->Posicao, p, n);
    a->Posicao += n;
    return quantos;
}

SAOffset Posicionar(SAFile f, SAOffset deslocamento, int origem)
{
    TAberto *a = DoSAFile(f);
    if (a->Disco)
        return std::fseek(a->Disco, static_cast<long>(deslocamento), origem) == 0 ? 0 : static_cast<SAOffset>(-1);
    SAOffset base = 0;
    if (origem == SEEK_CUR)
        base = a->Posicao;
    else if (origem == SEEK_END)
        base = static_cast<SAOffset>(a->Bytes->size());
    a->Posicao = base + deslocamento;
    return 0;
}

SAOffset Onde(SAFile f)
{
    TAberto *a = DoSAFile(f);
    if (a->Disco)
        return static_cast<SAOffset>(std::ftell(a->Disco));
    return a->Posicao;
}

int Esvaziar(SAFile f)
{
    TAberto *a = DoSAFile(f);
    return a->Disco ? std::fflush(a->Disco) : 0;
}

int Fechar(SAFile f)
{
    TAberto *a = DoSAFile(f);
    const int r = a->Disco ? std::fclose(a->Disco) : 0;
    delete a;
    return r;
}

int Apagar(const char *nome)
{
    TArquivosShapeFile *ctx = Ativo;
    if (ctx && nome && ctx->Memoria.erase(nome) > 0)
        return 0;
    return -1; // nada do disco é apagado por aqui
}

void Erro(const char *mensagem)
{
    if (TArquivosShapeFile *ctx = Ativo)
        ctx->Erros.append(QString::fromLocal8Bit(mensagem ? mensagem : ""));
}

double LerNumero(const char *texto)
{
    return QByteArray(texto ? texto : "").trimmed().toDouble(); // sempre com ponto, sem o locale
}

quint32 BigEndian(const unsigned char *p)
{
    return (quint32(p[0]) << 24) | (quint32(p[1]) << 16) | (quint32(p[2]) << 8) | quint32(p[3]);
}

void PorBigEndian(char *p, quint32 v)
{
    p[0] = static_cast<char>(v >> 24);
    p[1] = static_cast<char>(v >> 16);
    p[2] = static_cast<char>(v >> 8);
    p[3] = static_cast<char>(v);
}

} // namespace

SAHooks TArquivosShapeFile::CriarGanchos()
{
    SAHooks g;
    std::memset(&g, 0, sizeof g);
    g.FOpen = Abrir;
    g.FRead = Ler;
    g.FWrite = Escrever;
    g.FSeek = Posicionar;
    g.FTell = Onde;
    g.FFlush = Esvaziar;
    g.FClose = Fechar;
    g.Remove = Apagar;
    g.Error = Erro;
    g.Atof = LerNumero;
    return g;
}

TAtivarArquivos::TAtivarArquivos(TArquivosShapeFile &arquivos) : FAnterior(Ativo)
{
    Ativo = &arquivos;
}

TAtivarArquivos::~TAtivarArquivos()
{
    Ativo = FAnterior;
}

QByteArray RefazerShx(const QString &nomeShp)
{
    QFile shp(nomeShp);
    if (!shp.open(QIODevice::ReadOnly))
        return QByteArray();
    QByteArray cabecalho = shp.read(100);
    if (cabecalho.size() != 100)
        return QByteArray();
    const qint64 tamanho = shp.size();
    QByteArray shx = cabecalho;
    qint64 posicao = 100;
    unsigned char registro[8];
    // Cada entrada do índice custa 8 bytes e cada registro ao menos 8: o índice não passa do .shp.
    while (posicao + 8 <= tamanho && posicao / 2 <= 0x7fffffff) {
        if (!shp.seek(posicao) || shp.read(reinterpret_cast<char *>(registro), 8) != 8)
            break;
        const quint32 palavras = BigEndian(registro + 4);
        char entrada[8];
        PorBigEndian(entrada, static_cast<quint32>(posicao / 2));
        PorBigEndian(entrada + 4, palavras);
        shx.append(entrada, 8);
        const qint64 proximo = posicao + 8 + qint64(palavras) * 2;
        if (palavras > 0x3fffffff || proximo > tamanho)
            break; // tamanho impossível: o registro é acusado na leitura e a busca para aqui
        posicao = proximo;
    }
    PorBigEndian(shx.data() + 24, static_cast<quint32>(shx.size() / 2));
    return shx;
}

std::string NomeParaShapelib(const QString &caminho)
{
    return QFile::encodeName(caminho).toStdString();
}

} // namespace tavru::shp

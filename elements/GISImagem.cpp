#include <tavru/elements/GISImagem.h>

#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <QFile>
#include <QHash>
#include <QList>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QSaveFile>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tavru {

namespace {

/// Quanto do ".geo" é olhado: os quatro números cabem com folga.
constexpr qint64 TamanhoMaximoGEO = 64 * 1024;

bool Branco(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}

bool Digito(char c)
{
    return c >= '0' && c <= '9';
}

/// Lê quatro inteiros de 32 bits de `texto`; falso quando não há quatro números bem formados.
bool LerQuatroInteiros(const QByteArray &texto, std::int32_t valores[4])
{
    int i = 0;
    const int fim = texto.size();
    for (int k = 0; k < 4; ++k) {
        while (i < fim && Branco(texto[i]))
            ++i;
        bool negativo = false;
        if (i < fim && (texto[i] == '+' || texto[i] == '-')) {
            negativo = texto[i] == '-';
            ++i;
        }
        if (i >= fim || !Digito(texto[i]))
            return false;
        std::int64_t v = 0;
        while (i < fim && Digito(texto[i])) {
            v = v * 10 + (texto[i] - '0');
            if (v > std::int64_t(INT32_MAX) + 1)
                return false;
            ++i;
        }
        if (negativo)
            v = -v;
        if (v > INT32_MAX || v < INT32_MIN)
            return false;
        valores[k] = static_cast<std::int32_t>(v);
    }
    return true;
}

/// Paleta de até 256 cores por corte na mediana sobre um histograma de 5 bits por canal, e o
/// índice de cada caixa de 15 bits. Sem pontilhado: ampliada, a figura não vira ruído.
struct TPaleta
{
    QList<QRgb> Cores;
    std::vector<std::uint8_t> Indice = std::vector<std::uint8_t>(32768, 0);
};

int Caixa15(QRgb c)
{
    return ((qRed(c) >> 3) << 10) | ((qGreen(c) >> 3) << 5) | (qBlue(c) >> 3);
}

TPaleta CortarNaMediana(const QImage &rgb32)
{
    struct TBin
    {
        std::uint64_t N = 0, R = 0, G = 0, B = 0;
    };
    std::vector<TBin> bins(32768);
    for (int y = 0; y < rgb32.height(); ++y) {
        const QRgb *linha = reinterpret_cast<const QRgb *>(rgb32.constScanLine(y));
        for (int x = 0; x < rgb32.width(); ++x) {
            TBin &b = bins[static_cast<size_t>(Caixa15(linha[x]))];
            ++b.N;
            b.R += qRed(linha[x]);
            b.G += qGreen(linha[x]);
            b.B += qBlue(linha[x]);
        }
    }
    std::vector<std::vector<int>> caixas(1);
    for (int i = 0; i < 32768; ++i)
        if (bins[static_cast<size_t>(i)].N)
            caixas[0].push_back(i);
    const auto canal = [](int bin, int eixo) { return (bin >> (10 - 5 * eixo)) & 31; };
    while (caixas.size() < 256) {
        // A caixa de mais pixels vezes o maior vão se divide no eixo desse vão, na mediana.
        int melhor = -1, eixoMelhor = 0;
        double notaMelhor = 0;
        for (size_t k = 0; k < caixas.size(); ++k) {
            if (caixas[k].size() < 2)
                continue;
            int lo[3] = {31, 31, 31}, hi[3] = {0, 0, 0};
            std::uint64_t n = 0;
            for (int bin : caixas[k]) {
                n += bins[static_cast<size_t>(bin)].N;
                for (int e = 0; e < 3; ++e) {
                    lo[e] = std::min(lo[e], canal(bin, e));
                    hi[e] = std::max(hi[e], canal(bin, e));
                }
            }
            const int e = (hi[0] - lo[0] >= hi[1] - lo[1] && hi[0] - lo[0] >= hi[2] - lo[2]) ? 0
                        : (hi[1] - lo[1] >= hi[2] - lo[2])                                   ? 1
                                                                                             : 2;
            const double nota = double(n) * (hi[e] - lo[e]);
            if (nota > notaMelhor) {
                notaMelhor = nota;
                melhor = int(k);
                eixoMelhor = e;
            }
        }
        if (melhor < 0)
            break;
        std::vector<int> &caixa = caixas[static_cast<size_t>(melhor)];
        std::sort(caixa.begin(), caixa.end(),
                  [&](int a, int b) { return canal(a, eixoMelhor) < canal(b, eixoMelhor); });
        std::uint64_t total = 0, acumulado = 0;
        for (int bin : caixa)
            total += bins[static_cast<size_t>(bin)].N;
        size_t corte = 1;
        for (; corte < caixa.size() - 1; ++corte) {
            acumulado += bins[static_cast<size_t>(caixa[corte - 1])].N;
            if (acumulado * 2 >= total)
                break;
        }
        caixas.emplace_back(caixa.begin() + static_cast<std::ptrdiff_t>(corte), caixa.end());
        caixas[static_cast<size_t>(melhor)].resize(corte);
    }
    TPaleta paleta;
    for (size_t k = 0; k < caixas.size(); ++k) {
        TBin soma;
        for (int bin : caixas[k]) {
            const TBin &b = bins[static_cast<size_t>(bin)];
            soma.N += b.N, soma.R += b.R, soma.G += b.G, soma.B += b.B;
            paleta.Indice[static_cast<size_t>(bin)] = static_cast<std::uint8_t>(k);
        }
        const std::uint64_t n = std::max<std::uint64_t>(soma.N, 1);
        paleta.Cores.append(qRgb(int(soma.R / n), int(soma.G / n), int(soma.B / n)));
    }
    return paleta;
}

/// A figura opaca (transparência sobre branco) e com 8 bits por pixel. Com até 256 cores a
/// paleta é exata; com mais, o corte na mediana escolhe as 256.
QImage Opaca8Bits(const QImage &origem)
{
    QImage opaca(origem.size(), QImage::Format_RGB32);
    opaca.fill(Qt::white);
    {
        QPainter p(&opaca);
        p.drawImage(0, 0, origem);
    }
    // Cores exatas quando cabem.
    QHash<QRgb, int> exatas;
    for (int y = 0; y < opaca.height() && exatas.size() <= 256; ++y) {
        const QRgb *linha = reinterpret_cast<const QRgb *>(opaca.constScanLine(y));
        for (int x = 0; x < opaca.width() && exatas.size() <= 256; ++x)
            exatas.insert(linha[x] | 0xFF000000u, 0);
    }
    QImage saida(opaca.size(), QImage::Format_Indexed8);
    if (exatas.size() <= 256) {
        QList<QRgb> cores;
        for (auto it = exatas.begin(); it != exatas.end(); ++it) {
            it.value() = int(cores.size());
            cores.append(it.key());
        }
        saida.setColorTable(cores);
        for (int y = 0; y < opaca.height(); ++y) {
            const QRgb *linha = reinterpret_cast<const QRgb *>(opaca.constScanLine(y));
            uchar *destino = saida.scanLine(y);
            for (int x = 0; x < opaca.width(); ++x)
                destino[x] = static_cast<uchar>(exatas.value(linha[x] | 0xFF000000u));
        }
        return saida;
    }
    const TPaleta paleta = CortarNaMediana(opaca);
    saida.setColorTable(paleta.Cores);
    for (int y = 0; y < opaca.height(); ++y) {
        const QRgb *linha = reinterpret_cast<const QRgb *>(opaca.constScanLine(y));
        uchar *destino = saida.scanLine(y);
        for (int x = 0; x < opaca.width(); ++x)
            destino[x] = paleta.Indice[static_cast<size_t>(Caixa15(linha[x]))];
    }
    return saida;
}

} // namespace

const TClasseObjeto TGISImagem::Descritor = TClasseObjeto::De<TGISImagem>("TGISImagem");

TGISImagem::TGISImagem() : FImagem(100, 100, QImage::Format_RGB32)
{
    FImagem.fill(Qt::white);
}

TGISImagem::~TGISImagem() = default;

void TGISImagem::AtribuirPosicao(const TGISPosicao &p)
{
    const TAlteracao alteracao(*this);
    const std::int64_t dLat = std::int64_t(p.Latitude) - Posicao().Latitude;
    const std::int64_t dLon = std::int64_t(p.Longitude) - Posicao().Longitude;
    FAreaImagem.Pos1.Latitude = static_cast<std::int32_t>(FAreaImagem.Pos1.Latitude + dLat);
    FAreaImagem.Pos1.Longitude = static_cast<std::int32_t>(FAreaImagem.Pos1.Longitude + dLon);
    FAreaImagem.Pos2.Latitude = static_cast<std::int32_t>(FAreaImagem.Pos2.Latitude + dLat);
    FAreaImagem.Pos2.Longitude = static_cast<std::int32_t>(FAreaImagem.Pos2.Longitude + dLon);
    TGISObjeto::AtribuirPosicao(p);
}

void TGISImagem::AtribuirCor(TColor cor)
{
    FCorTransparente = cor;
    Mudou();
}

TColor TGISImagem::ObterCor() const
{
    if (FCorTransparente != clNone || FImagem.isNull())
        return FCorTransparente;
    return DeQColor(FImagem.pixelColor(0, FImagem.height() - 1));
}

TGISRet TGISImagem::Area() const
{
    return FAreaImagem;
}

void TGISImagem::AtribuirArea(const TGISRet &area)
{
    const TAlteracao alteracao(*this);
    FAreaImagem = area;
    Mudou();
    TGISObjeto::AtribuirPosicao(Centro(area));
}

void TGISImagem::Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado)
{
    const double zoom = projecao.Zoom();
    if (selecionado || zoom < FZoomMinimoImagem || zoom > FZoomMaximoImagem)
        return;
    const TRect r = ConcertaRect(projecao.MundoParaTelaRet(FAreaImagem));
    canvas.SetCopyMode(cmSrcCopy);
    canvas.StretchDraw(r, FImagem);
}

bool TGISImagem::Pertence(const TGISProjecao &projecao, const TPoint &ponto)
{
    const TRect r = projecao.MundoParaTelaRet(FAreaImagem);
    return r.Left < ponto.X && ponto.X < r.Right && r.Top < ponto.Y && ponto.Y < r.Bottom;
}

bool TGISImagem::ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto)
{
    const QString filtro = FiltroDeImagens();
    FAreaImagem = ConcertaRect(
        projecao.TelaParaMundoRet(TRect(ponto.X - 20, ponto.Y - 20, ponto.X + 20, ponto.Y + 20)));
    QString nome;
    int indiceFiltro = 1;
    if (!Dialogos().AbrirArquivo(QStringLiteral("Abrir Imagem"), filtro, nome, indiceFiltro))
        return false;
    LerArquivo(nome);
    return true;
}

void TGISImagem::LerArquivo(const QString &nome)
{
    FNomeArquivoImagem = nome;
    if (!QFileInfo(nome).isFile())
        throw EInOutError(QStringLiteral("O arquivo especificado não existe ou não está disponível!"));
    QImageReader leitor(nome);
    leitor.setDecideFormatFromContent(true);
    const QImage lida = leitor.read();
    if (lida.isNull())
        throw EInOutError(QStringLiteral("Formato de imagem desconhecido ou arquivo corrompido: %1 (%2)")
                              .arg(nome, leitor.errorString()));
    FImagem = Opaca8Bits(lida);
    LerArquivoGEO(nome);
}

bool TGISImagem::LerArquivoGEO(const QString &nome)
{
    QFile arquivo(NomeArquivoGEO(nome));
    if (!arquivo.exists())
        return false;
    if (!arquivo.open(QIODevice::ReadOnly))
        throw EInOutError(QStringLiteral("Não foi possível abrir o arquivo \"%1\": %2")
                              .arg(arquivo.fileName(), arquivo.errorString()));
    const QByteArray texto = arquivo.read(TamanhoMaximoGEO);
    std::int32_t v[4];
    if (!LerQuatroInteiros(texto, v))
        return false;
    FAreaImagem = ConcertaRect(GISRet(v[0], v[1], v[2], v[3]));
    return true;
}

void TGISImagem::GravarArquivoGEO(const QString &nome) const
{
    QSaveFile arquivo(NomeArquivoGEO(nome));
    const QByteArray linha = QByteArray::number(FAreaImagem.Pos1.Latitude) +
                             QByteArray::number(FAreaImagem.Pos1.Longitude) +
                             QByteArray::number(FAreaImagem.Pos2.Latitude) +
                             QByteArray::number(FAreaImagem.Pos2.Longitude) + "\r\n";
    if (!arquivo.open(QIODevice::WriteOnly) || arquivo.write(linha) != linha.size() || !arquivo.commit())
        throw EInOutError(QStringLiteral("Não foi possível gravar o arquivo \"%1\": %2")
                              .arg(arquivo.fileName(), arquivo.errorString()));
}

QString TGISImagem::NomeArquivoGEO(const QString &nome)
{
    const int barra = std::max(nome.lastIndexOf(QLatin1Char('/')), nome.lastIndexOf(QLatin1Char('\\')));
    const int ponto = nome.lastIndexOf(QLatin1Char('.'));
    if (ponto > barra)
        return nome.left(ponto) + QStringLiteral(".geo");
    return nome + QStringLiteral(".geo");
}

QString TGISImagem::FiltroDeImagens()
{
    // Os nomes de um mesmo formato ficam num par só.
    struct TFamilia
    {
        QString Descricao;
        QStringList Padroes;
    };
    const auto familiaDe = [](const QString &formato) {
        if (formato == QLatin1String("jpg") || formato == QLatin1String("jpeg") || formato == QLatin1String("jfif"))
            return QStringLiteral("JPEG");
        if (formato == QLatin1String("tif") || formato == QLatin1String("tiff"))
            return QStringLiteral("TIFF");
        if (formato == QLatin1String("svg") || formato == QLatin1String("svgz"))
            return QStringLiteral("SVG");
        return formato.toUpper();
    };
    std::vector<TFamilia> familias;
    QStringList todos;
    for (const QByteArray &bruto : QImageReader::supportedImageFormats()) {
        const QString formato = QString::fromLatin1(bruto).toLower();
        const QString padrao = QStringLiteral("*.") + formato;
        if (todos.contains(padrao))
            continue;
        todos.append(padrao);
        const QString descricao = familiaDe(formato);
        auto it = std::find_if(familias.begin(), familias.end(),
                               [&](const TFamilia &f) { return f.Descricao == descricao; });
        if (it == familias.end())
            familias.push_back({descricao, {padrao}});
        else
            it->Padroes.append(padrao);
    }
    const QString juntos = todos.join(QLatin1Char(';'));
    QString filtro = QStringLiteral("Formatos Compatíveis (%1)|%1").arg(juntos);
    for (const TFamilia &f : familias) {
        const QString padroes = f.Padroes.join(QLatin1Char(';'));
        filtro += QStringLiteral("|%1 (%2)|%2").arg(f.Descricao, padroes);
    }
    return filtro;
}

} // namespace tavru

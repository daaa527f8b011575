#include <tavru/elements/GISImagem.h>

#include <tavru/companions/geodesy/TFileFormatList.h>
#include <tavru/core/TGISProjecao.h>
#include <tavru/platform/ArquivoComum.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TCanvas.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <QFile>
#include <QHash>
#include <QList>
#include <QFileInfo>
#include <QDateTime>
#include <QImageReader>
#include <QMutex>
#include <QMutexLocker>

#include <algorithm>
#include <cmath>
#include <atomic>
#include <cstdint>
#include <new>
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

/// Lê os quatro inteiros de 32 bits do começo de `texto`: espaços em branco antes de cada um,
/// sinal opcional e dígitos; um número termina num espaço, no fim ou num sinal (o começo do
/// seguinte). O que vem depois do quarto é ignorado. Devolve vazio quando leu, ou o problema.
QString LerQuatroInteiros(const QByteArray &texto, std::int32_t valores[4])
{
    int i = 0;
    const int fim = texto.size();
    for (int k = 0; k < 4; ++k) {
        while (i < fim && Branco(texto[i]))
            ++i;
        if (i >= fim)
            return k == 0 ? QStringLiteral("o arquivo não tem números")
                          : QStringLiteral("tem só %1 número(s)").arg(k);
        bool negativo = false;
        if (texto[i] == '+' || texto[i] == '-') {
            negativo = texto[i] == '-';
            ++i;
        }
        const QString qual = QStringLiteral("o %1º número").arg(k + 1);
        if (i >= fim || !Digito(texto[i]))
            return qual + QStringLiteral(" não é um inteiro decimal");
        std::int64_t v = 0;
        while (i < fim && Digito(texto[i])) {
            v = v * 10 + (texto[i] - '0');
            if (v > std::int64_t(INT32_MAX) + 1)
                return qual + QStringLiteral(" passa dos 32 bits");
            ++i;
        }
        if (i < fim && !Branco(texto[i]) && texto[i] != '+' && texto[i] != '-')
            return qual + QStringLiteral(" não é um inteiro decimal");
        if (negativo)
            v = -v;
        if (v > INT32_MAX || v < INT32_MIN)
            return qual + QStringLiteral(" passa dos 32 bits");
        valores[k] = static_cast<std::int32_t>(v);
    }
    return QString();
}

[[noreturn]] void SemMemoria(const QString &nome, QSize tamanho)
{
    throw EInOutError(QStringLiteral("Memória insuficiente para a figura \"%1\" (%2 x %3 pixels); ela não foi lida.")
                          .arg(nome)
                          .arg(tamanho.width())
                          .arg(tamanho.height()));
}

/// Uma figura nova, conferida: a falta de memória é um erro, nunca uma figura nula escrita.
QImage NovaFigura(QSize tamanho, QImage::Format formato, const QString &nome)
{
    QImage figura(tamanho, formato);
    if (figura.isNull())
        SemMemoria(nome, tamanho);
    return figura;
}

/// O pixel sobre fundo branco: a transparência vira branco.
QRgb Opaco(QRgb c)
{
    const int a = qAlpha(c);
    if (a == 255)
        return c;
    const auto canal = [a](int v) { return (v * a + 255 * (255 - a) + 127) / 255; };
    return qRgb(canal(qRed(c)), canal(qGreen(c)), canal(qBlue(c)));
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
            const QRgb c = Opaco(linha[x]);
            TBin &b = bins[static_cast<size_t>(Caixa15(c))];
            ++b.N;
            b.R += qRed(c);
            b.G += qGreen(c);
            b.B += qBlue(c);
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
/// paleta é exata; com mais, o corte na mediana escolhe as 256. Toda figura alocada é conferida.
QImage Opaca8Bits(const QImage &origem, const QString &nome)
{
    if (origem.format() == QImage::Format_Indexed8) {
        // Já tem 8 bits: só a paleta fica opaca (e com 256 entradas, para que nenhum índice caia
        // fora dela); a figura nunca passa por 32 bits, e o pico da leitura é o de duas cópias.
        QList<QRgb> cores = origem.colorTable();
        for (QRgb &c : cores)
            c = Opaco(c) | 0xFF000000u;
        while (cores.size() < 256)
            cores.append(0xFF000000u);
        QImage saida = origem;
        saida.setColorTable(cores);
        if (saida.isNull() || saida.constBits() == nullptr)
            SemMemoria(nome, origem.size());
        return saida;
    }
    QImage cores32 = origem;
    if (origem.format() != QImage::Format_RGB32 && origem.format() != QImage::Format_ARGB32) {
        cores32 = origem.convertToFormat(QImage::Format_ARGB32);
        if (cores32.isNull())
            SemMemoria(nome, origem.size());
    }
    const auto linhaDe = [&](int y) { return reinterpret_cast<const QRgb *>(cores32.constScanLine(y)); };
    // Cores exatas quando cabem.
    QHash<QRgb, int> exatas;
    for (int y = 0; y < cores32.height() && exatas.size() <= 256; ++y) {
        const QRgb *linha = linhaDe(y);
        for (int x = 0; x < cores32.width() && exatas.size() <= 256; ++x)
            exatas.insert(Opaco(linha[x]) | 0xFF000000u, 0);
    }
    QImage saida = NovaFigura(cores32.size(), QImage::Format_Indexed8, nome);
    if (exatas.size() <= 256) {
        QList<QRgb> cores;
        for (auto it = exatas.begin(); it != exatas.end(); ++it) {
            it.value() = int(cores.size());
            cores.append(it.key());
        }
        saida.setColorTable(cores);
        for (int y = 0; y < cores32.height(); ++y) {
            const QRgb *linha = linhaDe(y);
            uchar *destino = saida.scanLine(y);
            for (int x = 0; x < cores32.width(); ++x)
                destino[x] = static_cast<uchar>(exatas.value(Opaco(linha[x]) | 0xFF000000u));
        }
        return saida;
    }
    const TPaleta paleta = CortarNaMediana(cores32);
    saida.setColorTable(paleta.Cores);
    for (int y = 0; y < cores32.height(); ++y) {
        const QRgb *linha = linhaDe(y);
        uchar *destino = saida.scanLine(y);
        for (int x = 0; x < cores32.width(); ++x)
            destino[x] = paleta.Indice[static_cast<size_t>(Caixa15(Opaco(linha[x])))];
    }
    return saida;
}

/// O limite das figuras em bytes (32 bits por pixel); 0 é sem limite.
std::atomic<qint64> LimiteDasFiguras{qint64(256) * 1024 * 1024};

/// A figura de um arquivo se reconhece pelo caminho, pelo tamanho e pela hora de modificação.
struct TChaveDeFigura
{
    QString Caminho;
    qint64 Tamanho = 0;
    qint64 Modificado = 0;
    bool operator==(const TChaveDeFigura &o) const
    {
        return Tamanho == o.Tamanho && Modificado == o.Modificado && Caminho == o.Caminho;
    }
};

/// As figuras já lidas, para todo o processo: a mesma figura lida de novo é a mesma cópia
/// decodificada (o compartilhamento implícito do `QImage`). Uma entrada vive enquanto alguém
/// além daqui a usa. Protegida por um mutex: figuras podem ser lidas em mais de uma linha.
class TFigurasLidas
{
public:
    QImage Procurar(const TChaveDeFigura &chave)
    {
        const QMutexLocker trava(&FMutex);
        Purgar();
        for (const TEntrada &e : FEntradas)
            if (e.Chave == chave)
                return e.Figura;
        return QImage();
    }
    /// Guarda a figura e devolve a que fica (a de outra linha que chegou antes, se houve).
    QImage Guardar(const TChaveDeFigura &chave, const QImage &figura)
    {
        const QMutexLocker trava(&FMutex);
        Purgar();
        for (const TEntrada &e : FEntradas)
            if (e.Chave == chave)
                return e.Figura;
        FEntradas.push_back({chave, figura});
        return figura;
    }
    void Liberar()
    {
        const QMutexLocker trava(&FMutex);
        Purgar();
    }

private:
    struct TEntrada
    {
        TChaveDeFigura Chave;
        QImage Figura;
    };
    /// Solta as figuras que só esta lista usa.
    void Purgar()
    {
        FEntradas.erase(std::remove_if(FEntradas.begin(), FEntradas.end(),
                                       [](const TEntrada &e) { return e.Figura.isDetached(); }),
                        FEntradas.end());
    }
    QMutex FMutex;
    std::vector<TEntrada> FEntradas;
};

TFigurasLidas &FigurasLidas()
{
    // Nunca destruída: uma imagem estática destruída na saída do programa ainda a encontra.
    static TFigurasLidas *figuras = new TFigurasLidas;
    return *figuras;
}

/// A figura de `tamanho` pixels cabe no limite, contada com 32 bits por pixel; senão, erro.
void ConferirLimite(const QString &nome, QSize tamanho)
{
    const qint64 limite = LimiteDasFiguras.load();
    const qint64 bytes = qint64(tamanho.width()) * tamanho.height() * 4;
    if (limite > 0 && bytes > limite) {
        constexpr double MB = 1024.0 * 1024.0;
        throw EInOutError(QStringLiteral("A figura \"%1\" tem %2 x %3 pixels (%4 MB em 32 bits), acima do limite de "
                                         "%5 MB das figuras; ela não foi lida.")
                              .arg(nome)
                              .arg(tamanho.width())
                              .arg(tamanho.height())
                              .arg(bytes / MB, 0, 'f', 1)
                              .arg(limite / MB, 0, 'f', 1));
    }
}

/// Decodifica a figura aberta em `dispositivo`, dentro do limite, e a deixa opaca e com 8 bits.
QImage Decodificar(QIODevice &dispositivo, const QString &nome)
{
    QImageReader leitor(&dispositivo);
    leitor.setDecideFormatFromContent(true);
    const QSize tamanho = leitor.size();
    if (tamanho.isValid())
        ConferirLimite(nome, tamanho);
    // A figura decodificada já alocada e conferida, quando o cabeçalho diz o tamanho e o formato.
    QImage lida;
    if (tamanho.isValid() && leitor.imageFormat() != QImage::Format_Invalid)
        lida = NovaFigura(tamanho, leitor.imageFormat(), nome);
    if (!leitor.read(&lida) || lida.isNull())
        throw EInOutError(QStringLiteral("Formato de imagem desconhecido ou arquivo corrompido: %1 (%2)")
                              .arg(nome, leitor.errorString()));
    try {
        return Opaca8Bits(lida, nome);
    } catch (const std::bad_alloc &) {
        SemMemoria(nome, lida.size());
    }
}

/// Decodifica pelo leitor do formato (os que a plataforma não lê), dentro do limite, e deixa a
/// figura opaca e com 8 bits.
QImage DecodificarPeloFormato(const TFormatoGrafico &formato, QIODevice &dispositivo, const QString &nome)
{
    QImage lida = formato.Ler(dispositivo, [&nome](QSize tamanho) { ConferirLimite(nome, tamanho); });
    if (lida.isNull())
        throw EInOutError(QStringLiteral("Formato de imagem desconhecido ou arquivo corrompido: %1").arg(nome));
    try {
        return Opaca8Bits(lida, nome);
    } catch (const std::bad_alloc &) {
        SemMemoria(nome, lida.size());
    }
}

/// As partes de figuras já escaladas para a tela, por canvas (no contexto de desenho), entre um
/// quadro e o próximo: a mesma figura no mesmo retângulo de tela e a mesma parte visível são
/// desenhadas sem escalar de novo. O total fica dentro de um orçamento (duas telas, em bytes);
/// as menos usadas há mais tempo saem primeiro.
class TCacheDeFiguras
{
public:
    const QImage &Obter(const QImage &figura, const TRect &r, const TRect &visivel, std::int64_t orcamento)
    {
        ++FRelogio;
        for (TEntrada &e : FEntradas)
            if (e.Chave == figura.cacheKey() && e.R == r && e.Visivel == visivel) {
                e.Uso = FRelogio;
                return e.Parte;
            }
        TEntrada nova{figura.cacheKey(), r, visivel, Escalar(figura, r, visivel), FRelogio};
        const std::int64_t bytes = nova.Parte.sizeInBytes();
        // Sai o menos usado até caber (uma parte maior que o orçamento fica sozinha).
        while (!FEntradas.empty() && Total() + bytes > orcamento) {
            auto velha = std::min_element(FEntradas.begin(), FEntradas.end(),
                                          [](const TEntrada &a, const TEntrada &b) { return a.Uso < b.Uso; });
            FEntradas.erase(velha);
        }
        FEntradas.push_back(std::move(nova));
        return FEntradas.back().Parte;
    }

private:
    struct TEntrada
    {
        qint64 Chave;
        TRect R, Visivel;
        QImage Parte;
        std::uint64_t Uso;
    };
    std::int64_t Total() const
    {
        std::int64_t t = 0;
        for (const TEntrada &e : FEntradas)
            t += e.Parte.sizeInBytes();
        return t;
    }
    /// A parte `visivel` da figura esticada em `r`, pixel a pixel pelo vizinho mais próximo (como
    /// o desenho esticado sem suavização), em 32 bits: só os pixels da tela são calculados, e a
    /// figura inteira nunca é escalada nem convertida.
    static QImage Escalar(const QImage &figura, const TRect &r, const TRect &visivel)
    {
        const int largura = visivel.Right - visivel.Left, altura = visivel.Bottom - visivel.Top;
        QImage parte(largura, altura, QImage::Format_RGB32);
        if (parte.isNull())
            return parte;
        const double escalaX = double(figura.width()) / (double(r.Right) - r.Left);
        const double escalaY = double(figura.height()) / (double(r.Bottom) - r.Top);
        std::vector<int> colunas(static_cast<size_t>(largura));
        for (int x = 0; x < largura; ++x) {
            const double sx = (double(visivel.Left) + x + 0.5 - r.Left) * escalaX;
            colunas[static_cast<size_t>(x)] = std::clamp(int(sx), 0, figura.width() - 1);
        }
        const bool indexada = figura.format() == QImage::Format_Indexed8;
        const QImage origem = indexada ? figura : figura.convertToFormat(QImage::Format_RGB32);
        const QVector<QRgb> cores = indexada ? origem.colorTable() : QVector<QRgb>();
        QRgb paleta[256];
        for (int i = 0; i < 256; ++i)
            paleta[i] = i < cores.size() ? cores[i] | 0xFF000000u : 0xFF000000u;
        for (int y = 0; y < altura; ++y) {
            const double sy = (double(visivel.Top) + y + 0.5 - r.Top) * escalaY;
            const int linha = std::clamp(int(sy), 0, origem.height() - 1);
            QRgb *destino = reinterpret_cast<QRgb *>(parte.scanLine(y));
            if (indexada) {
                const uchar *fonte = origem.constScanLine(linha);
                for (int x = 0; x < largura; ++x)
                    destino[x] = paleta[fonte[colunas[static_cast<size_t>(x)]]];
            } else {
                const QRgb *fonte = reinterpret_cast<const QRgb *>(origem.constScanLine(linha));
                for (int x = 0; x < largura; ++x)
                    destino[x] = fonte[colunas[static_cast<size_t>(x)]];
            }
        }
        return parte;
    }

    std::vector<TEntrada> FEntradas;
    std::uint64_t FRelogio = 0;
};

/// Quanto de um arquivo de mundo é olhado: seis números.
constexpr qint64 TamanhoMaximoMundo = 4 * 1024;

} // namespace

const TClasseObjeto TGISImagem::Descritor = TClasseObjeto::De<TGISImagem>("TGISImagem");

TGISImagem::TGISImagem() : FImagem(100, 100, QImage::Format_RGB32)
{
    FImagem.fill(Qt::white);
}

TGISImagem::~TGISImagem()
{
    // A figura compartilhada que só a lista das figuras lidas ainda guardava vai embora.
    FImagem = QImage();
    FigurasLidas().Liberar();
}

qint64 TGISImagem::LimiteDeFigura()
{
    return LimiteDasFiguras.load();
}

void TGISImagem::AtribuirLimiteDeFigura(qint64 bytes)
{
    const qint64 limite = std::max<qint64>(bytes, 0);
    LimiteDasFiguras.store(limite);
    constexpr qint64 MB = 1024 * 1024;
    QImageReader::setAllocationLimit(int(std::min<qint64>((limite + MB - 1) / MB, INT32_MAX)));
}

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
    const QImage *tela = canvas.Imagem();
    if (!tela || tela->isNull() || FImagem.isNull() || tela->devicePixelRatio() != 1.0) {
        // Um canvas sem imagem (que só anota) recebe a figura inteira; numa imagem de alta
        // densidade, o pintor estica tudo, e a parte escalada aqui não seria a da tela.
        canvas.StretchDraw(r, FImagem);
        return;
    }
    // Só a parte da figura que cai na tela, na resolução da tela, guardada entre quadros.
    const std::int64_t esquerda = std::max<std::int64_t>(r.Left, 0);
    const std::int64_t topo = std::max<std::int64_t>(r.Top, 0);
    const std::int64_t direita = std::min<std::int64_t>(r.Right, tela->width());
    const std::int64_t baixo = std::min<std::int64_t>(r.Bottom, tela->height());
    if (esquerda >= direita || topo >= baixo)
        return;
    const TRect visivel{static_cast<int>(esquerda), static_cast<int>(topo), static_cast<int>(direita), static_cast<int>(baixo)};
    TCacheDeFiguras &cache = canvas.Contexto().Obter<TCacheDeFiguras>();
    const QImage &parte = cache.Obter(FImagem, r, visivel, std::int64_t(tela->width()) * tela->height() * 4 * 2);
    if (!parte.isNull())
        canvas.Draw(visivel.Left, visivel.Top, parte);
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
    const QFileInfo info(nome);
    const std::unique_ptr<QFile> arquivo = AbrirArquivoComum(nome);
    if (!arquivo)
        throw EInOutError(QStringLiteral("O arquivo especificado não existe ou não está disponível!"));
    const TChaveDeFigura chave{info.canonicalFilePath().isEmpty() ? info.absoluteFilePath() : info.canonicalFilePath(),
                               info.size(), info.lastModified().toMSecsSinceEpoch()};
    QImage figura = FigurasLidas().Procurar(chave);
    if (figura.isNull()) {
        TFormatoGrafico formato;
        const bool proprio = TFileFormatList::GraphicFromExtension(info.suffix(), formato) && formato.Ler;
        figura = FigurasLidas().Guardar(chave, proprio ? DecodificarPeloFormato(formato, *arquivo, nome)
                                                       : Decodificar(*arquivo, nome));
    } else {
        ConferirLimite(nome, figura.size()); // o limite vale também para a figura já lida
    }
    FImagem = figura;
    if (!LerArquivoGEO(nome))
        LerArquivoMundo(nome);
}

bool TGISImagem::LerArquivoGEO(const QString &nome)
{
    TGISRet lida;
    if (!LerGeo(NomeArquivoGEO(nome), lida))
        return false;
    FAreaImagem = ConcertaRect(lida);
    return true;
}

bool TGISImagem::LerGeo(const QString &geo, TGISRet &area)
{
    const std::unique_ptr<QFile> arquivo = AbrirArquivoComum(geo);
    if (!arquivo)
        return false;
    const QByteArray texto = arquivo->read(TamanhoMaximoGEO);
    if (arquivo->error() != QFileDevice::NoError)
        throw EInOutError(QStringLiteral("Não foi possível ler o arquivo \"%1\": %2.").arg(geo, arquivo->errorString()));
    std::int32_t v[4];
    const QString problema = LerQuatroInteiros(texto, v);
    if (!problema.isEmpty())
        throw EInOutError(QStringLiteral("O arquivo \"%1\" não tem os quatro números inteiros da área da figura: %2.")
                              .arg(geo, problema));
    area = GISRet(v[0], v[1], v[2], v[3]);
    return true;
}

QStringList TGISImagem::NomesArquivoMundo(const QString &nome)
{
    const QString geo = NomeArquivoGEO(nome);
    const QString base = geo.left(geo.size() - 4);
    const QString extensao = QFileInfo(nome).suffix().toLower();
    QStringList nomes;
    if (extensao.size() >= 2)
        nomes.append(base + QLatin1Char('.') + extensao.front() + extensao.back() + QLatin1Char('w'));
    if (!extensao.isEmpty())
        nomes.append(base + QLatin1Char('.') + extensao + QLatin1Char('w'));
    nomes.append(base + QStringLiteral(".wld"));
    nomes.removeDuplicates();
    return nomes;
}

bool TGISImagem::LerArquivoMundo(const QString &nome)
{
    for (const QString &mundo : NomesArquivoMundo(nome)) {
        const std::unique_ptr<QFile> arquivo = AbrirArquivoComum(mundo);
        if (!arquivo)
            continue;
        const QByteArray texto = arquivo->read(TamanhoMaximoMundo);
        const QList<QByteArray> partes = texto.simplified().split(' ');
        double v[6];
        bool lidos = partes.size() >= 6;
        for (int k = 0; lidos && k < 6; ++k)
            v[k] = partes[k].toDouble(&lidos);
        for (int k = 0; lidos && k < 6; ++k)
            lidos = std::isfinite(v[k]);
        if (!lidos) {
            qWarning("Tavru: o arquivo de mundo \"%s\" não tem seis números; a figura fica no retângulo padrão.",
                     qPrintable(mundo));
            return false;
        }
        // A, D, B, E, C, F: tamanho do pixel em x, rotações, tamanho em y (negativo com o norte
        // para cima), centro do pixel de cima à esquerda.
        if (v[1] != 0.0 || v[2] != 0.0) {
            qWarning("Tavru: o arquivo de mundo \"%s\" tem termos de rotação (%g, %g), que a figura não faz; ela fica "
                     "no retângulo padrão.",
                     qPrintable(mundo), v[1], v[2]);
            return false;
        }
        const double lon1 = v[4] - v[0] / 2, lat1 = v[5] - v[3] / 2;
        const double lon2 = lon1 + v[0] * FImagem.width(), lat2 = lat1 + v[3] * FImagem.height();
        const auto segundos = [](double graus) { return graus * 3600.0; };
        const double limite = 2147483647.0;
        const double c[4] = {segundos(lat1), segundos(lon1), segundos(lat2), segundos(lon2)};
        for (double x : c)
            if (!(std::fabs(x) < limite)) {
                qWarning("Tavru: o arquivo de mundo \"%s\" põe a figura fora do mundo; ela fica no retângulo padrão.",
                         qPrintable(mundo));
                return false;
            }
        FAreaImagem = ConcertaRect(GISRet(static_cast<std::int32_t>(std::lround(c[0])),
                                          static_cast<std::int32_t>(std::lround(c[1])),
                                          static_cast<std::int32_t>(std::lround(c[2])),
                                          static_cast<std::int32_t>(std::lround(c[3]))));
        return true;
    }
    return false;
}

void TGISImagem::GravarArquivoGEO(const QString &nome) const
{
    const QString geo = NomeArquivoGEO(nome);
    const QByteArray linha = QByteArray::number(FAreaImagem.Pos1.Latitude) +
                             QByteArray::number(FAreaImagem.Pos1.Longitude) +
                             QByteArray::number(FAreaImagem.Pos2.Latitude) +
                             QByteArray::number(FAreaImagem.Pos2.Longitude) + "\r\n";
    const QString motivo = GravarArquivoComum(geo, linha);
    if (!motivo.isEmpty())
        throw EInOutError(QStringLiteral("Não foi possível gravar o arquivo \"%1\": %2.").arg(geo, motivo));
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
    QString filtro = TFileFormatList::GetGraphicFilter();
    filtro.replace(QStringLiteral("All Images"), QStringLiteral("Formatos Compatíveis"), Qt::CaseInsensitive);
    // Os outros formatos que os leitores de imagem da plataforma conhecem (TIFF, WebP, ...), um
    // par por formato, depois dos da lista.
    QStringList extras;
    for (const QByteArray &bruto : QImageReader::supportedImageFormats()) {
        const QString formato = QString::fromLatin1(bruto).toLower();
        TFormatoGrafico conhecido;
        if (!TFileFormatList::GraphicFromExtension(formato, conhecido) && !extras.contains(formato))
            extras.append(formato);
    }
    for (const QString &formato : extras)
        filtro += QStringLiteral("|%1 (*.%2)|*.%2").arg(formato.toUpper(), formato);
    return filtro;
}

} // namespace tavru

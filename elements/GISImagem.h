#pragma once
/// \file
/// A imagem: uma figura raster estendida sobre um retângulo do mundo, com o arquivo ".geo".

#include <tavru/core/TGISObjeto.h>
#include <tavru/platform/Exportacao.h>

#include <QImage>
#include <QString>

namespace tavru {

/// Figura raster deitada num retângulo do mundo (`AreaImagem`) e esticada até a imagem desse
/// retângulo na tela.
///
/// O arquivo ".geo" fica ao lado da figura, com o mesmo nome e a extensão trocada por ".geo":
/// um texto cuja primeira linha tem os quatro inteiros de `AreaImagem` na ordem de `TGISRet`
/// (latitude 1, longitude 1, latitude 2, longitude 2, em segundos de arco).
///
/// A figura é lida pela lista de formatos de figura (`TFileFormatList`: JPEG, PNG, GIF, BMP, WMF e
/// EMF) e pelos leitores de imagem do Qt (o que os plug-ins de formatos instalados somam: TIFF,
/// WebP, TGA, ICO...; ver `FiltroDeImagens`). A figura fica opaca (a transparência vira fundo branco) e com
/// 8 bits por pixel (paleta de 256 cores), para que o desenho seja o mesmo de mapas já guardados e
/// a memória de figuras grandes caia a um quarto.
///
/// Unidades: retângulos em segundos de arco; zoom como o da projeção.
///
/// Figuras lidas do mesmo arquivo (mesmo caminho, tamanho e hora de modificação) compartilham uma
/// só cópia decodificada, para todo o processo (o compartilhamento implícito do `QImage`): um
/// documento que nomeia a mesma figura 200 vezes a decodifica e guarda uma vez. Uma figura cuja
/// forma de 32 bits por pixel passa de `LimiteDeFigura` não é lida.
///
/// Posse: o objeto possui a sua figura (um valor, talvez compartilhado com outras imagens lidas do
/// mesmo arquivo). O destrutor libera tudo o que a base guarda, normalmente.
class TAVRU_GIS_EXPORT TGISImagem : public TGISObjeto
{
public:
    /// O descritor da classe (construtor virtual).
    static const TClasseObjeto Descritor;

    /// `AreaImagem` (-1000, -1000, 1000, 1000), figura branca de 100 x 100 pixels, zoom de 0.0 a
    /// 50000.0, sem arquivo, escala 1.0.
    TGISImagem();
    ~TGISImagem() override;

    const TClasseObjeto &Classe() const override { return Descritor; }
    /// Desloca os dois cantos de `AreaImagem` de `p - Posicao` (cada eixo à parte; o tamanho não
    /// muda) e então guarda a posição como a base.
    void AtribuirPosicao(const TGISPosicao &p) override;
    /// A cor transparente da figura. Ela é guardada, mas a figura é desenhada opaca.
    void AtribuirCor(TColor cor) override;
    /// A cor transparente da figura: a atribuída ou, antes disso, a do pixel do canto inferior
    /// esquerdo, como a plataforma faz no modo automático.
    TColor ObterCor() const override;
    /// Abre o diálogo de abrir arquivo (`Dialogos()`, filtro `FiltroDeImagens`), põe em
    /// `AreaImagem` o quadrado de 40 x 40 pixels em torno do clique e, se o usuário escolher um
    /// arquivo, o lê com `LerArquivo` (que troca `AreaImagem` quando há ".geo"). A posição não
    /// muda. Responde se um arquivo foi escolhido. Erros de leitura seguem para quem chama.
    bool ConfiguracaoPadrao(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// Estica a figura no retângulo de tela de `AreaImagem` (em ordem), com cópia simples, só
    /// quando `ZoomMinimoImagem <= zoom <= ZoomMaximoImagem` e `selecionado` é falso.
    ///
    /// Num canvas com imagem, só a parte da figura que cai dentro dela é escalada, na resolução da
    /// tela (vizinho mais próximo, como o desenho esticado sem suavização), e o resultado fica no
    /// contexto de desenho do canvas para o quadro seguinte na mesma visão: um cache por canvas,
    /// para todas as imagens, com orçamento de duas telas (32 bits por pixel), que solta as partes
    /// usadas há mais tempo. Trocar a figura (`AtribuirImagem`, `LerArquivo`) troca a chave do cache.
    /// Num canvas sem imagem (que só anota chamadas), a figura inteira vai a `StretchDraw`.
    void Desenhar(TCanvas &canvas, const TGISProjecao &projecao, bool selecionado) override;
    /// Estrito e sem normalizar: com R = `MundoParaTelaRet(AreaImagem)`, verdadeiro só quando
    /// R.Left < x < R.Right e R.Top < y < R.Bottom. Mantido de propósito: numa projeção com o
    /// norte para cima, uma `AreaImagem` em ordem tem R.Top > R.Bottom e a imagem nunca é
    /// atingida (figuras são fundo, não se consultam); só uma área guardada com as latitudes
    /// trocadas é atingida.
    bool Pertence(const TGISProjecao &projecao, const TPoint &ponto) override;
    /// `AreaImagem`.
    TGISRet Area() const override;

    /// Lê a figura do arquivo e, quando existe, o ".geo" dela:
    /// 1. `NomeArquivoImagem` = `nome` (fica mesmo que a leitura falhe);
    /// 2. a figura é lida (o formato vem do conteúdo, não só da extensão), fica opaca e com 8 bits
    ///    por pixel; a mesma figura já lida no processo não é decodificada de novo. Um formato da
    ///    lista de formatos de figura (`TFileFormatList`) com leitor próprio é lido por ele (pela
    ///    extensão); os outros, pelos leitores de imagem da plataforma;
    /// 3. o ".geo" é lido por `LerArquivoGEO`, e os erros dele seguem para quem chama (a figura já
    ///    trocada fica); sem ".geo", o arquivo de mundo (`LerArquivoMundo`, extensão). A posição
    ///    não muda.
    /// Um arquivo que não existe levanta `EInOutError` com "O arquivo especificado não existe ou
    /// não está disponível!"; um nome que não é de um arquivo comum (pasta, FIFO, dispositivo), uma
    /// figura acima de `LimiteDeFigura`, a falta de memória para decodificá-la ou convertê-la
    /// ("Memória insuficiente para a figura ...") e uma figura ilegível, de formato desconhecido ou
    /// corrompida ("Formato de imagem desconhecido ou arquivo corrompido: <nome> (<motivo>)")
    /// levantam `EInOutError` com o nome do arquivo. Nesses casos a figura anterior fica.
    void LerArquivo(const QString &nome);
    /// Grava o ".geo" de `nome` (a extensão trocada por ".geo"): os quatro inteiros de
    /// `AreaImagem` em decimal, um logo depois do outro, sem separador, e o fim de linha CR LF.
    /// Mantido de propósito assim: (-1000, -1000, 1000, 1000) vira "-1000-100010001000", que só
    /// volta a ser lido quando os sinais separam os números. Arquivos para leitura são escritos
    /// com espaços por outras ferramentas. Um arquivo anterior só é trocado quando a gravação
    /// termina; uma falha levanta `EInOutError` com o motivo em português ("sem espaço no disco").
    void GravarArquivoGEO(const QString &nome) const;
    /// Lê o ".geo" de `nome`, quando existe, para `AreaImagem`, em ordem (`ConcertaRect`).
    ///
    /// Formato lido: quatro inteiros decimais de 32 bits (sinal opcional e dígitos), separados por
    /// qualquer espaço em branco, inclusive fins de linha; como num leitor de números decimal
    /// comum, um sinal também separa ("10-20" são 10 e -20). O que vem depois do quarto número
    /// (depois de um espaço ou de um sinal) é ignorado. Só os primeiros 64 KiB são olhados.
    /// Responde falso, sem mudar nada, quando não há ".geo"; verdadeiro quando leu.
    /// \throws EInOutError com o nome do ".geo" quando ele não é um arquivo comum (um FIFO não trava
    ///         a leitura), não abre, ou o texto não começa por quatro inteiros (lixo, três números,
    ///         um número com fração ou letras grudadas, um número além dos 32 bits, arquivo vazio).
    ///         `AreaImagem` fica como estava.
    bool LerArquivoGEO(const QString &nome);
    /// Lê os quatro inteiros do arquivo ".geo" `geo` (o nome do próprio ".geo") para `area`, como
    /// vieram (sem `ConcertaRect`), com o formato e os erros de `LerArquivoGEO`. Responde falso, sem
    /// mudar `area`, quando o arquivo não existe.
    static bool LerGeo(const QString &geo, TGISRet &area);
    /// Extensão: lê o arquivo de mundo do ESRI ao lado da figura, quando não há ".geo", para
    /// `AreaImagem`, em ordem. Os nomes procurados, nesta ordem, são os de `NomesArquivoMundo`
    /// (".pgw" para ".png", ".jgw" para ".jpg", ".gfw", ".bpw", ".tfw", ".pngw"..., ".wld"); vale o
    /// primeiro que existe. As seis linhas são o tamanho do pixel em graus de longitude, as duas
    /// rotações, o tamanho do pixel em graus de latitude (negativo com o norte para cima) e a
    /// longitude e a latitude do centro do pixel de cima à esquerda; o retângulo vai da borda
    /// desse pixel à borda do último, com o tamanho da figura já lida, arredondado ao segundo.
    /// Um arquivo com rotação, sem seis números ou que cai fora dos 32 bits não é usado: um aviso
    /// (`qWarning`) diz por quê e `AreaImagem` fica como estava. Responde se leu.
    bool LerArquivoMundo(const QString &nome);
    /// Os nomes de arquivo de mundo de `nome`, na ordem em que são procurados.
    static QStringList NomesArquivoMundo(const QString &nome);
    /// `AreaImagem` = `area` (como veio) e a posição da base vai para o centro dela (sem passar
    /// pelo deslocamento de `AtribuirPosicao`).
    void AtribuirArea(const TGISRet &area);

    /// O limite do tamanho de uma figura decodificada, em bytes, contado com 32 bits por pixel
    /// (largura × altura × 4), para todo o processo. Padrão 256 MB (256 × 1024 × 1024), o mesmo
    /// limite de alocação do leitor de imagens do Qt.
    static qint64 LimiteDeFigura();
    /// Troca o limite das figuras (bytes; 0 ou negativo é sem limite) e, com ele, o limite de
    /// alocação do leitor de imagens do Qt (`QImageReader::setAllocationLimit`, em MB arredondados
    /// para cima), que vale para o processo inteiro.
    static void AtribuirLimiteDeFigura(qint64 bytes);

    /// O nome do ".geo" de um arquivo: a extensão do nome (depois do último ponto do nome do
    /// arquivo, não das pastas) trocada por ".geo", ou ".geo" acrescentado quando não há.
    static QString NomeArquivoGEO(const QString &nome);
    /// O filtro do diálogo de abrir, no formato da casa: o da lista de formatos de figura
    /// (`TFileFormatList::GetGraphicFilter`) com cada "All Images" trocado por "Formatos
    /// Compatíveis" (sem diferenciar maiúsculas) e, depois, um par para cada outro formato que os
    /// leitores de imagem da plataforma conhecem ("TIFF (*.tiff)|*.tiff", ...).
    static QString FiltroDeImagens();

    // Campos.

    /// Retângulo do mundo coberto pela figura.
    TGISRet AreaImagem() const { return FAreaImagem; }
    void AtribuirAreaImagem(const TGISRet &area) { FAreaImagem = area; Mudou(); }
    /// A figura.
    const QImage &Imagem() const { return FImagem; }
    void AtribuirImagem(const QImage &imagem) { FImagem = imagem; Mudou(); }
    /// Menor zoom em que a figura é desenhada (inclusive).
    double ZoomMinimoImagem() const { return FZoomMinimoImagem; }
    void AtribuirZoomMinimoImagem(double zoom) { FZoomMinimoImagem = zoom; Mudou(); }
    /// Maior zoom em que a figura é desenhada (inclusive).
    double ZoomMaximoImagem() const { return FZoomMaximoImagem; }
    void AtribuirZoomMaximoImagem(double zoom) { FZoomMaximoImagem = zoom; Mudou(); }
    /// Arquivo de onde a figura foi lida.
    QString NomeArquivoImagem() const { return FNomeArquivoImagem; }
    /// Escala da figura: a razão entre o mundo mostrado e a área da figura, que o controle do mapa
    /// calcula no zoom inteligente (a menor das razões vertical e horizontal). Padrão 1.0.
    double Escala() const { return FEscala; }
    void AtribuirEscala(double escala) { FEscala = escala; Mudou(); }

private:
    TGISRet FAreaImagem = GISRet(-1000, -1000, 1000, 1000);
    QImage FImagem;
    double FZoomMinimoImagem = 0.0;
    double FZoomMaximoImagem = 50000.0;
    QString FNomeArquivoImagem;
    double FEscala = 1.0;
    TColor FCorTransparente = clNone;
};

} // namespace tavru

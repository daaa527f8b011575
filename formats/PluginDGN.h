/* PluginDGN.h: o contrato entre o tratador de desenhos DGN e as bibliotecas de plug-in que leem
 * os desenhos por ele. Cabeçalho em C puro, instalado com o pacote, para quem escreve um plug-in
 * (em C, C++ ou outra linguagem que chame e exporte funções na convenção do C).
 *
 * Um plug-in é uma biblioteca dinâmica (".so" no Linux, ".dll" no Windows) posta numa pasta de
 * plug-ins. Exporta, com estes nomes exatos e a convenção de chamada do C:
 *
 *   int32_t iInicializar(void);                     uma vez, ao carregar; 0 = não está pronto
 *                                                   (a biblioteca é liberada)
 *   void    iFinalizar(void);                       uma vez, antes de a biblioteca ser liberada;
 *                                                   pode rodar na saída do processo, depois dos
 *                                                   destrutores estáticos do próprio plug-in:
 *                                                   mantenha-a simples
 *   void    iObterFiltroArquivos(const char **f);   põe em *f o filtro do diálogo de abrir,
 *                                                   terminado em zero: descrição, "|", máscara
 *                                                   ("Desenhos DGN (*.dgn)|*.dgn"); o texto fica
 *                                                   com o plug-in e vale enquanto ele estiver
 *                                                   carregado
 *   int32_t iImportar(const char *arquivo,          lê o desenho; devolve 0 quando o arquivo não
 *                     TavruRetornoDGN retorno,      está num formato válido. Cada elemento vira
 *                     void *contexto);              uma chamada de retorno(tipo, &registro,
 *                                                   contexto); o registro só precisa valer durante
 *                                                   a chamada. O nome vem em 8 bits, na
 *                                                   codificação local de nomes de arquivo
 *   int32_t iConfigurarNaDLL(void);                 (opcional) 0 = o plug-in entrega coordenadas
 *                                                   da grade UTM, que o sistema converte depois
 *                                                   de perguntar o fuso, a zona, o elipsoide e a
 *                                                   unidade; outro valor (ou a falta da função) =
 *                                                   o plug-in entrega graus
 *
 * Uma biblioteca sem uma das quatro primeiras funções fica carregada e nunca é usada.
 *
 * Coordenadas de um TavruPontoDGN: em graus, a primeira é a latitude e a segunda a longitude
 * (graus decimais, sul e oeste negativos); na grade UTM, a primeira é a coordenada leste e a
 * segunda a norte, na unidade do desenho (metros ou quilômetros, como o usuário disser).
 *
 * Leiaute dos registros: little-endian, doubles IEEE 754 de 64 bits, inteiros com sinal de 32
 * bits, cores no valor de cor da plataforma (0x00BBGGRR, vermelho no byte baixo). Os campos de
 * endereço têm o tamanho de um ponteiro, com o alinhamento natural do C; há portanto dois
 * leiautes, e cada compilação usa o do tamanho dos seus ponteiros (TAVRU_DGN_ENDERECO_BYTES):
 *
 *   registro            campo                    32 bits   64 bits
 *   ponto (1)           a, b                     0, 8      0, 8
 *                       cor                      16        16
 *   linha (2)           total (n)                0         0
 *                       vertices (n pontos)      4         8    (4 bytes de enchimento antes)
 *                       cor da caneta            8         16
 *                       largura da caneta (px)   12        20
 *                       estilo da caneta         13        21
 *   área (3)            total, vertices          0, 4      0, 8
 *                       cor da caneta            8         16
 *                       cor do pincel            12        20
 *                       largura da caneta        16        24
 *                       estilo da caneta         17        25
 *                       estilo do pincel         18        26
 *   área circular (4)   centro                   0         0
 *                       raio menor, raio maior   16, 24    16, 24
 *                       azimute inicial, final   32, 40    32, 40
 *   imagem (5)          canto1, canto2           0, 16     0, 16
 *                       reservado (não lido)     32        32
 *                       arquivo (ou nulo)        36        40   (4 bytes de enchimento antes)
 *
 * O leiaute de 32 bits é o dos plug-ins originais de 32 bits; os deslocamentos acima são
 * conferidos na compilação. Estilos: caneta sólida 0, tracejada 1, pontilhada 2, traço-ponto 3,
 * traço-ponto-ponto 4, nenhuma 5, dentro da moldura 6; pincel sólido 0, vazio 1, horizontal 2,
 * vertical 3, diagonal / 4, diagonal \ 5, cruz 6, cruz diagonal 7. A área é fechada pelo
 * sistema: entregue o anel sem repetir o primeiro vértice no fim. Raios e azimutes da área
 * circular passam sem conversão. Uma imagem com os quatro números dos cantos em 0.0 fica no
 * retângulo zero. A função de retorno devolve sempre 1 ("continue").
 */
#ifndef TAVRU_PLUGIN_DGN_H
#define TAVRU_PLUGIN_DGN_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Tipos de registro (o primeiro argumento da função de retorno); outros valores são ignorados. */
#define TAVRU_DGN_PONTO 1
#define TAVRU_DGN_LINHA 2
#define TAVRU_DGN_AREA 3
#define TAVRU_DGN_AREA_CIRCULAR 4
#define TAVRU_DGN_IMAGEM 5

/* Tamanho dos campos de endereço desta compilação: 4 (leiaute de 32 bits) ou 8 (de 64 bits). */
#define TAVRU_DGN_ENDERECO_BYTES ((int)sizeof(void *))

/* Para marcar as funções exportadas de um plug-in. */
#if defined(_WIN32)
#  define TAVRU_DGN_EXPORTA __declspec(dllexport)
#else
#  define TAVRU_DGN_EXPORTA __attribute__((visibility("default")))
#endif

typedef struct TavruPontoDGN {
    double A; /* latitude ou coordenada leste */
    double B; /* longitude ou coordenada norte */
} TavruPontoDGN;

typedef struct TavruRegistroPontoDGN {
    TavruPontoDGN Posicao;
    int32_t Cor;
} TavruRegistroPontoDGN;

typedef struct TavruRegistroLinhaDGN {
    int32_t Total;
    const TavruPontoDGN *Vertices;
    int32_t CorCaneta;
    uint8_t LarguraCaneta;
    uint8_t EstiloCaneta;
} TavruRegistroLinhaDGN;

typedef struct TavruRegistroAreaDGN {
    int32_t Total;
    const TavruPontoDGN *Vertices;
    int32_t CorCaneta;
    int32_t CorPincel;
    uint8_t LarguraCaneta;
    uint8_t EstiloCaneta;
    uint8_t EstiloPincel;
} TavruRegistroAreaDGN;

typedef struct TavruRegistroAreaCircularDGN {
    TavruPontoDGN Centro;
    double RaioMenor;
    double RaioMaior;
    double AzimuteInicial;
    double AzimuteFinal;
} TavruRegistroAreaCircularDGN;

typedef struct TavruRegistroImagemDGN {
    TavruPontoDGN Canto1;
    TavruPontoDGN Canto2;
    int32_t Reservado;
    const char *Arquivo; /* nome da figura, terminado em zero, ou nulo */
} TavruRegistroImagemDGN;

typedef int32_t (*TavruRetornoDGN)(uint16_t tipo, const void *registro, void *contexto);

typedef int32_t (*TavruInicializarDGN)(void);
typedef void (*TavruFinalizarDGN)(void);
typedef void (*TavruObterFiltroArquivosDGN)(const char **filtro);
typedef int32_t (*TavruImportarDGN)(const char *arquivo, TavruRetornoDGN retorno, void *contexto);
typedef int32_t (*TavruConfigurarNaDLLDGN)(void);

/* Conferência dos leiautes na compilação. */
#ifdef __cplusplus
#  define TAVRU_DGN_CONFERE(c, m) static_assert(c, m)
#else
#  define TAVRU_DGN_CONFERE(c, m) _Static_assert(c, m)
#endif
TAVRU_DGN_CONFERE(sizeof(double) == 8 && sizeof(TavruPontoDGN) == 16, "ponto de 16 bytes");
TAVRU_DGN_CONFERE(offsetof(TavruRegistroPontoDGN, Cor) == 16, "ponto: cor em 16");
TAVRU_DGN_CONFERE(offsetof(TavruRegistroAreaCircularDGN, RaioMenor) == 16 &&
                  offsetof(TavruRegistroAreaCircularDGN, AzimuteFinal) == 40, "área circular");
#if defined(__SIZEOF_POINTER__) && __SIZEOF_POINTER__ == 4 || defined(_WIN32) && !defined(_WIN64)
TAVRU_DGN_CONFERE(offsetof(TavruRegistroLinhaDGN, Vertices) == 4 &&
                  offsetof(TavruRegistroLinhaDGN, CorCaneta) == 8 &&
                  offsetof(TavruRegistroLinhaDGN, LarguraCaneta) == 12 &&
                  offsetof(TavruRegistroLinhaDGN, EstiloCaneta) == 13, "linha de 32 bits");
TAVRU_DGN_CONFERE(offsetof(TavruRegistroAreaDGN, CorPincel) == 12 &&
                  offsetof(TavruRegistroAreaDGN, LarguraCaneta) == 16 &&
                  offsetof(TavruRegistroAreaDGN, EstiloPincel) == 18, "área de 32 bits");
TAVRU_DGN_CONFERE(offsetof(TavruRegistroImagemDGN, Reservado) == 32 &&
                  offsetof(TavruRegistroImagemDGN, Arquivo) == 36, "imagem de 32 bits");
#else
TAVRU_DGN_CONFERE(sizeof(void *) == 8, "ponteiros de 4 ou 8 bytes");
TAVRU_DGN_CONFERE(offsetof(TavruRegistroLinhaDGN, Vertices) == 8 &&
                  offsetof(TavruRegistroLinhaDGN, CorCaneta) == 16 &&
                  offsetof(TavruRegistroLinhaDGN, LarguraCaneta) == 20 &&
                  offsetof(TavruRegistroLinhaDGN, EstiloCaneta) == 21, "linha de 64 bits");
TAVRU_DGN_CONFERE(offsetof(TavruRegistroAreaDGN, CorCaneta) == 16 &&
                  offsetof(TavruRegistroAreaDGN, CorPincel) == 20 &&
                  offsetof(TavruRegistroAreaDGN, LarguraCaneta) == 24 &&
                  offsetof(TavruRegistroAreaDGN, EstiloCaneta) == 25 &&
                  offsetof(TavruRegistroAreaDGN, EstiloPincel) == 26, "área de 64 bits");
TAVRU_DGN_CONFERE(offsetof(TavruRegistroImagemDGN, Reservado) == 32 &&
                  offsetof(TavruRegistroImagemDGN, Arquivo) == 40, "imagem de 64 bits");
#endif
#undef TAVRU_DGN_CONFERE

#ifdef __cplusplus
}
#endif

#endif /* TAVRU_PLUGIN_DGN_H */

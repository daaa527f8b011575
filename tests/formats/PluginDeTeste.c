/* Plug-in de teste, em C (o cabeçalho dos plug-ins tem de servir a C). Compilado várias vezes:
 *   NOME             nome que vai para o diário
 *   FILTRO           texto de iObterFiltroArquivos
 *   CONFIGURAR       quando definido, exporta iConfigurarNaDLL devolvendo esse valor
 *   SEM_IMPORTAR     não exporta iImportar
 *   INICIALIZAR_ZERO iInicializar devolve 0
 * Com a variável de ambiente TAVRU_DIARIO_PLUGINS, anota "inicializar NOME" e "finalizar NOME"
 * nesse arquivo.
 *
 * iImportar lê um roteiro de texto, um registro por linha, e o entrega à função de retorno:
 *   ponto A B COR
 *   linha COR LARGURA ESTILO N A1 B1 ... AN BN
 *   area COR_CANETA COR_PINCEL LARGURA ESTILO_CANETA ESTILO_PINCEL N A1 B1 ...
 *   circular A B RAIO_MENOR RAIO_MAIOR AZIMUTE_INICIAL AZIMUTE_FINAL
 *   imagem A1 B1 A2 B2 ARQUIVO (ou "-" para nulo)
 *   tipo K        (um registro de ponto entregue com o tipo K)
 *   negativa      (uma linha com -5 vértices)
 *   falha         (iImportar devolve 0 aqui)
 * Um arquivo que não abre também dá 0. */
#include <tavru/formats/PluginDGN.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#define MAXIMO 64

static void Anotar(const char *evento)
{
    const char *diario = getenv("TAVRU_DIARIO_PLUGINS");
    if (!diario)
        return;
    FILE *f = fopen(diario, "a");
    if (!f)
        return;
    fprintf(f, "%s %s\n", evento, NOME);
    fclose(f);
}

TAVRU_DGN_EXPORTA int32_t iInicializar(void)
{
    Anotar("inicializar");
#ifdef INICIALIZAR_ZERO
    return 0;
#else
    return 1;
#endif
}

TAVRU_DGN_EXPORTA void iFinalizar(void)
{
    Anotar("finalizar");
}

TAVRU_DGN_EXPORTA void iObterFiltroArquivos(const char **filtro)
{
    *filtro = FILTRO;
}

#ifdef CONFIGURAR
TAVRU_DGN_EXPORTA int32_t iConfigurarNaDLL(void)
{
    return CONFIGURAR;
}
#endif

#ifndef SEM_IMPORTAR
static int LerVertices(FILE *f, TavruPontoDGN *vertices, int32_t *total)
{
    int n = 0;
    if (fscanf(f, "%d", &n) != 1 || n < 0 || n > MAXIMO)
        return 0;
    for (int i = 0; i < n; ++i) {
        if (fscanf(f, "%lf %lf", &vertices[i].A, &vertices[i].B) != 2)
            return 0;
    }
    *total = n;
    return 1;
}

TAVRU_DGN_EXPORTA int32_t iImportar(const char *arquivo, TavruRetornoDGN retorno, void *contexto)
{
    FILE *f = fopen(arquivo, "r");
    if (!f)
        return 0;
    TavruPontoDGN vertices[MAXIMO];
    char palavra[32];
    int32_t resultado = 1;
    while (resultado && fscanf(f, "%31s", palavra) == 1) {
        int estilos[3] = {0, 0, 0};
        if (strcmp(palavra, "ponto") == 0) {
            TavruRegistroPontoDGN r;
            memset(&r, 0, sizeof r);
            resultado = fscanf(f, "%lf %lf %d", &r.Posicao.A, &r.Posicao.B, &r.Cor) == 3;
            if (resultado)
                retorno(TAVRU_DGN_PONTO, &r, contexto);
        } else if (strcmp(palavra, "linha") == 0) {
            TavruRegistroLinhaDGN r;
            memset(&r, 0, sizeof r);
            resultado = fscanf(f, "%d %d %d", &r.CorCaneta, &estilos[0], &estilos[1]) == 3 &&
                        LerVertices(f, vertices, &r.Total);
            r.LarguraCaneta = (uint8_t)estilos[0];
            r.EstiloCaneta = (uint8_t)estilos[1];
            r.Vertices = vertices;
            if (resultado)
                retorno(TAVRU_DGN_LINHA, &r, contexto);
        } else if (strcmp(palavra, "area") == 0) {
            TavruRegistroAreaDGN r;
            memset(&r, 0, sizeof r);
            resultado = fscanf(f, "%d %d %d %d %d", &r.CorCaneta, &r.CorPincel, &estilos[0], &estilos[1],
                               &estilos[2]) == 5 &&
                        LerVertices(f, vertices, &r.Total);
            r.LarguraCaneta = (uint8_t)estilos[0];
            r.EstiloCaneta = (uint8_t)estilos[1];
            r.EstiloPincel = (uint8_t)estilos[2];
            r.Vertices = vertices;
            if (resultado)
                retorno(TAVRU_DGN_AREA, &r, contexto);
        } else if (strcmp(palavra, "circular") == 0) {
            TavruRegistroAreaCircularDGN r;
            resultado = fscanf(f, "%lf %lf %lf %lf %lf %lf", &r.Centro.A, &r.Centro.B, &r.RaioMenor,
                               &r.RaioMaior, &r.AzimuteInicial, &r.AzimuteFinal) == 6;
            if (resultado)
                retorno(TAVRU_DGN_AREA_CIRCULAR, &r, contexto);
        } else if (strcmp(palavra, "imagem") == 0) {
            TavruRegistroImagemDGN r;
            char nome[1024];
            memset(&r, 0, sizeof r);
            resultado = fscanf(f, "%lf %lf %lf %lf %1023s", &r.Canto1.A, &r.Canto1.B, &r.Canto2.A,
                               &r.Canto2.B, nome) == 5;
            r.Arquivo = strcmp(nome, "-") == 0 ? NULL : nome;
            if (resultado)
                retorno(TAVRU_DGN_IMAGEM, &r, contexto);
        } else if (strcmp(palavra, "tipo") == 0) {
            TavruRegistroPontoDGN r;
            int tipo = 0;
            memset(&r, 0, sizeof r);
            resultado = fscanf(f, "%d", &tipo) == 1;
            if (resultado)
                retorno((uint16_t)tipo, &r, contexto);
        } else if (strcmp(palavra, "negativa") == 0) {
            TavruRegistroLinhaDGN r;
            memset(&r, 0, sizeof r);
            r.Total = -5;
            r.Vertices = vertices;
            retorno(TAVRU_DGN_LINHA, &r, contexto);
        } else {
            resultado = 0;
        }
    }
    fclose(f);
    return resultado;
}
#endif

#pragma once
/// \file
/// Pontos guardados como deslocamentos a partir da posição de um objeto, no referencial sem giro
/// (linhas e trajetos), e a pergunta do número de pontos que os dois fazem ao serem incluídos.
///
/// Do deslocamento (lat, lon), com a posição P e a orientação o (radianos, anti-horária), o ponto
/// absoluto é (round(P.Lat + r sen(o + t)), round(P.Lon + r cos(o + t))), com r e t o raio e o
/// ângulo do deslocamento; a conta usa a fórmula da soma de ângulos (mesmo resultado, sem
/// `atan2`/`sqrt` por ponto). Com orientação zero a conta é inteira e exata, e resultados fora da
/// faixa de 32 bits são limitados a ela (`Saturar32`); com giro, o arredondamento de um resultado
/// fora da faixa dá o "inteiro indefinido" de `Arredondar` (`INT_MIN`), nunca comportamento
/// indefinido.

#include <tavru/companions/geodesy/GISPosicao.h>
#include <tavru/platform/Exportacao.h>

#include <QString>

namespace tavru {

/// O ponto absoluto do deslocamento `d` de um objeto na posição `p` girado de `o` (radianos).
/// `cosO`/`senO` são cos(o)/sen(o), calculados uma vez por quem converte muitos pontos;
/// `semGiro` diz que o é zero (caminho inteiro exato).
TAVRU_GIS_EXPORT TGISPosicao PosicaoAbsoluta(const TGISPosicao &d, const TGISPosicao &p, double cosO, double senO,
                                             bool semGiro);
/// O mesmo, com a orientação em radianos.
TAVRU_GIS_EXPORT TGISPosicao PosicaoAbsoluta(const TGISPosicao &d, const TGISPosicao &p, double o);
/// O deslocamento a guardar para a posição absoluta `a` de um objeto na posição `p` girado de
/// `o` (radianos): o inverso de `PosicaoAbsoluta`, a menos do arredondamento.
TAVRU_GIS_EXPORT TGISPosicao Deslocamento(const TGISPosicao &a, const TGISPosicao &p, double o);

/// Pergunta por `Dialogos()` o número de pontos de `minimo` a 200, com `minimo` como resposta
/// padrão, até vir um número válido. Um texto que não é número não vale; 0 quer dizer que o
/// usuário desistiu (e é devolvido). Cancelar devolve o padrão, como a caixa de entrada faz.
TAVRU_GIS_EXPORT int PerguntarNumeroDePontos(const QString &titulo, const QString &pergunta, int minimo);

/// O ponto `i` (de `n`) da forma padrão de uma linha nova incluída no ponto de tela `centro`:
/// uma senoide de 20 pixels de amplitude e três pontos por radiano de fase, pontos a cada 10
/// pixels, centrada em `centro`.
TAVRU_GIS_EXPORT TPoint PontoDaSenoidePadrao(int i, int n, const TPoint &centro);

} // namespace tavru

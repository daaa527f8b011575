#pragma once
/// \file
/// "Abrir mapa..." e "Salvar mapa..." do menu Arquivo, e o último mapa reaberto ao começar.

class QMainWindow;
class QMenu;

namespace tavru {

class TGis;

/// Acrescenta ao `menu` "Abrir mapa..." e "Salvar mapa..." (o documento do mapa inteiro,
/// "*.tmapa"). Abrir troca o mapa só quando o documento se lê inteiro; um erro aparece numa caixa
/// de mensagem e o mapa fica como estava. Cada mapa aberto ou salvo passa a ser o último mapa.
void AcrescentarMenuDoMapa(QMenu &menu, TGis &gis, QMainWindow &janela);

/// Reabre o último mapa aberto ou salvo (guardado nos ajustes do aplicativo), quando há um e o
/// arquivo ainda existe. Um erro vai para a barra de estado da janela, sem diálogo: o começo nunca
/// para esperando o usuário.
void ReabrirUltimoMapa(TGis &gis, QMainWindow &janela);

} // namespace tavru

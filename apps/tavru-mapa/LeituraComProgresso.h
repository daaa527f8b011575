#pragma once
/// \file
/// Leituras longas com a caixa de progresso e "Cancelar", sem travar a janela.

#include <QString>

class QWidget;

namespace tavru {

class TGISObjetoList;

/// Lê `arquivo` com o tratador `tipo` e acrescenta os objetos a `lista`. A leitura acontece numa
/// lista de rascunho; os documentos XML são lidos noutra linha de execução e os objetos passam a
/// `lista` nesta (a da interface), os outros tipos (que podem perguntar coisas ao usuário, como a
/// carta DGN) são lidos aqui mesmo, com a janela atendida entre um aviso de progresso e outro.
/// Uma leitura que passa de meio segundo mostra a caixa de progresso, filha de `pai`, com
/// "Cancelar". Erros do tratador seguem para quem chama, e a lista fica como estava; o
/// cancelamento levanta `ELeituraCancelada`, também com a lista como estava.
void LerComProgresso(QWidget *pai, TGISObjetoList &lista, const QString &arquivo, const QString &tipo);

} // namespace tavru

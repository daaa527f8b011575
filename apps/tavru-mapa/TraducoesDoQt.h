#pragma once
/// \file
/// As traduções do próprio Qt para o português do Brasil.

class QCoreApplication;
class QTranslator;

namespace tavru {

/// Carrega as traduções pt_BR do Qt (as de qtbase, que o Debian instala em
/// `QLibraryInfo::TranslationsPath`) e as instala no aplicativo, para que os diálogos do Qt
/// (arquivo, cor, fonte, caixas de mensagem) falem português. Devolve o tradutor instalado
/// (possuído pelo aplicativo), ou nulo quando as traduções não estão instaladas.
QTranslator *CarregarTraducoesDoQt(QCoreApplication &aplicativo);

} // namespace tavru

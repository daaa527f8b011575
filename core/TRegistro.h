#pragma once
/// \file
/// Uma entrada do registro de tratadores de arquivo.

#include <tavru/core/TClasseTratador.h>

#include <QString>

namespace tavru {

/// Entrada do registro de tratadores: o nome de tipo (único no registro), a classe do tratador e
/// os filtros de diálogo de leitura e de gravação ("Descrição (*.x)|*.x"; vazio quando o tratador
/// não lê, ou não grava).
struct TRegistro
{
    QString Tipo;
    const TClasseTratador *Classe = nullptr;
    QString FiltroLeitura;
    QString FiltroEscrita;
};

} // namespace tavru

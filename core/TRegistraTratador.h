#pragma once
/// \file
/// Registro de um tratador de arquivo pela vida de um objeto estático.

#include <tavru/core/TClasseTratador.h>
#include <tavru/platform/Exportacao.h>

#include <QString>

namespace tavru {


/// Registra um tratador ao ser construído e remove o registro ao ser destruído. Um objeto estático
/// deste tipo na fonte de um tratador faz o registro na carga da biblioteca e o desfaz na
/// descarga:
/// `static const TRegistraTratador registro(QStringLiteral("XML"), TTratadorX::Classe, filtro, filtro);`
/// Um nome de tipo repetido levanta `EInvalidOperation` já na carga: os nomes de tipo têm de ser
/// únicos.
class TAVRU_GIS_EXPORT TRegistraTratador
{
public:
    TRegistraTratador(const QString &tipo, const TClasseTratador &classe, const QString &filtroLeitura,
                      const QString &filtroEscrita);
    ~TRegistraTratador();
    TRegistraTratador(const TRegistraTratador &) = delete;
    TRegistraTratador &operator=(const TRegistraTratador &) = delete;

private:
    const TClasseTratador &FClasse;
};

} // namespace tavru

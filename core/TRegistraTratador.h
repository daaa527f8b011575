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
/// Nada escapa do construtor (uma exceção num inicializador estático terminaria o hospedeiro): um
/// nome de tipo repetido, ou qualquer outra falha, pula o registro, é escrito com `qWarning` e
/// fica em `TGISObjetoList::FalhasDeRegistro`. Um registro pulado não é desfeito na descarga.
class TAVRU_GIS_EXPORT TRegistraTratador
{
public:
    TRegistraTratador(const QString &tipo, const TClasseTratador &classe, const QString &filtroLeitura,
                      const QString &filtroEscrita) noexcept;
    ~TRegistraTratador();
    /// Se o registro foi feito.
    bool Registrado() const { return FRegistrado; }
    TRegistraTratador(const TRegistraTratador &) = delete;
    TRegistraTratador &operator=(const TRegistraTratador &) = delete;

private:
    const TClasseTratador &FClasse;
    bool FRegistrado = false;
};

} // namespace tavru

#include <tavru/core/TRegistraTratador.h>

#include <tavru/core/TGISObjetoList.h>

namespace tavru {

TRegistraTratador::TRegistraTratador(const QString &tipo, const TClasseTratador &classe,
                                     const QString &filtroLeitura, const QString &filtroEscrita)
    : FClasse(classe)
{
    TGISObjetoList::RegistrarTratadorDeArquivo(tipo, classe, filtroLeitura, filtroEscrita);
}

TRegistraTratador::~TRegistraTratador()
{
    TGISObjetoList::RemoverRegistroTratadorDeArquivo(FClasse);
}

} // namespace tavru

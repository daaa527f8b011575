// O registro do tratador de Shapefiles pela vida da biblioteca. Um erro no registro (um tipo
// "ShapeFile" já registrado por outro) é avisado e pulado: nada escapa de um inicializador
// estático.

#include <tavru/core/TGISObjetoList.h>
#include <tavru/formats/TTratadorDeShapeFile.h>
#include <tavru/platform/Exception.h>

#include <QtGlobal>

namespace tavru {
namespace {

class TRegistroShapeFile
{
public:
    TRegistroShapeFile()
    {
        const QString filtro = QStringLiteral("Arquivo ShapeFile (*.shp)|*.shp");
        try {
            TGISObjetoList::RegistrarTratadorDeArquivo(QStringLiteral("ShapeFile"), TTratadorDeShapeFile::Classe, filtro,
                                                       filtro);
            FRegistrado = true;
        } catch (const std::exception &e) {
            qWarning("Tavru: o tratador de Shapefiles não foi registrado: %s", e.what());
        }
    }
    ~TRegistroShapeFile()
    {
        if (FRegistrado)
            TGISObjetoList::RemoverRegistroTratadorDeArquivo(TTratadorDeShapeFile::Classe);
    }
    TRegistroShapeFile(const TRegistroShapeFile &) = delete;
    TRegistroShapeFile &operator=(const TRegistroShapeFile &) = delete;

private:
    bool FRegistrado = false;
};

const TRegistroShapeFile RegistroShapeFile;

} // namespace
} // namespace tavru

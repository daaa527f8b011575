// O registro do tratador de figuras georreferenciadas pela vida da biblioteca, sob os seis tipos
// e na ordem de ReconheceArquivosRaster.h. Um tipo que não se registra (já registrado por outro)
// é avisado e pulado, e os outros seguem: nada escapa de um inicializador estático.

#include <tavru/core/TGISObjetoList.h>
#include <tavru/formats/TTratadorArquivosRasters.h>

#include <QtGlobal>

namespace tavru {
namespace {

class TRegistroRasters
{
public:
    TRegistroRasters()
    {
        struct TTipo
        {
            const char *Nome;
            const char *Leitura;
            const char *Gravacao;
        };
        static const TTipo tipos[] = {
            {"jpeg", "Arquivo do JPEG (*.jpg)|*.jpg", "Arquivo do JPEG (*.jpg)|*.jpg"},
            {"png", "Arquivo do PNG (*.png)|*.jpg", "Arquivo do png (*.png)|*.png"},
            {"gif", "Arquivo do gif (*.gif)|*.gif", "Arquivo do gif (*.gif)|*.gif"},
            {"Bitmap", "Arquivo bitmap (*.bmp)|*.bmp", "Arquivo bitmap (*.bmp)|*.bmp"},
            {"windows meta file", "Arquivo MetaFile (*.wmf)|*.wmf", "Arquivo MetaFile (*.wmf)|*.wmf"},
            {"e meta file", "Arquivo MetaFile (*.emf)|*.emf", "Arquivo MetaFile (*.emf)|*.emf"},
        };
        for (const TTipo &t : tipos) {
            try {
                TGISObjetoList::RegistrarTratadorDeArquivo(QString::fromUtf8(t.Nome), TTratadorArquivosRasters::Classe,
                                                           QString::fromUtf8(t.Leitura), QString::fromUtf8(t.Gravacao));
                FRegistrado = true;
            } catch (const std::exception &e) {
                qWarning("Tavru: o tipo de figura \"%s\" não foi registrado: %s", t.Nome, e.what());
            }
        }
    }
    ~TRegistroRasters()
    {
        if (FRegistrado)
            TGISObjetoList::RemoverRegistroTratadorDeArquivo(TTratadorArquivosRasters::Classe);
    }
    TRegistroRasters(const TRegistroRasters &) = delete;
    TRegistroRasters &operator=(const TRegistroRasters &) = delete;

private:
    bool FRegistrado = false;
};

const TRegistroRasters RegistroRasters;

} // namespace
} // namespace tavru

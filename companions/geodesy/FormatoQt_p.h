#pragma once
// As peças comuns dos formatos que o Qt lê e grava (JPEG, PNG, BMP) e do registro de um formato
// pela vida da biblioteca. Não instalado.

#include <tavru/companions/geodesy/TFileFormatList.h>

namespace tavru {

/// Grava a figura pelo gravador de imagens do Qt no formato `formato` ("jpg", "png", "bmp"),
/// primeiro em memória e depois ao lado do arquivo, trocado no fim (um arquivo anterior só some
/// quando a gravação termina). Levanta `EInOutError` com o motivo.
void GravarPeloQt(const QImage &figura, const QString &nomeArquivo, const char *formato);

/// Registra um formato quando a biblioteca carrega e o tira quando descarrega. Nada escapa do
/// construtor: uma falha é avisada com `qWarning` e pulada.
class TRegistroDeFormato
{
public:
    explicit TRegistroDeFormato(const TFormatoGrafico &formato);
    ~TRegistroDeFormato();
    TRegistroDeFormato(const TRegistroDeFormato &) = delete;
    TRegistroDeFormato &operator=(const TRegistroDeFormato &) = delete;

private:
    QString FExtensao;
};

} // namespace tavru

#include <tavru/core/TRegistraTratador.h>

#include <tavru/core/TGISObjetoList.h>

#include <QtGlobal>
#include <exception>

namespace tavru {

TRegistraTratador::TRegistraTratador(const QString &tipo, const TClasseTratador &classe,
                                     const QString &filtroLeitura, const QString &filtroEscrita) noexcept
    : FClasse(classe)
{
    QString falha;
    try {
        TGISObjetoList::RegistrarTratadorDeArquivo(tipo, classe, filtroLeitura, filtroEscrita);
        FRegistrado = true;
        return;
    } catch (const std::exception &e) {
        falha = QString::fromUtf8(e.what());
    } catch (...) {
        falha = QStringLiteral("erro desconhecido");
    }
    try {
        const QString mensagem = QStringLiteral("Tratador de arquivo \"%1\" não registrado: %2").arg(tipo, falha);
        qWarning("%s", qUtf8Printable(mensagem));
        TGISObjetoList::AnotarFalhaDeRegistro(mensagem);
    } catch (...) {
        // Sem memória nem para a mensagem: o registro fica pulado em silêncio.
    }
}

TRegistraTratador::~TRegistraTratador()
{
    if (FRegistrado)
        TGISObjetoList::RemoverRegistroTratadorDeArquivo(FClasse);
}

} // namespace tavru

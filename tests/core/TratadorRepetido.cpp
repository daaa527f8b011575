// Biblioteca de teste carregada em tempo de execução: registra na carga um tipo novo e repete o
// tipo "XML", já registrado pela biblioteca do mapa (com a mesma classe, para que uma remoção
// indevida na descarga apareça).

#include <tavru/core/TGISTratadorDeArquivo.h>
#include <tavru/core/TRegistraTratador.h>
#include <tavru/xml/TTratadorDeArquivosXML.h>

namespace {

class TTratadorNovo : public tavru::TGISTratadorDeArquivo
{
public:
    static const tavru::TClasseTratador Classe;
    using TGISTratadorDeArquivo::TGISTratadorDeArquivo;
    void Ler(const QString &) override {}
    void Gravar(const QString &) override {}
    bool Reconhece(QIODevice &) override { return false; }
};
const tavru::TClasseTratador TTratadorNovo::Classe = tavru::TClasseTratador::De<TTratadorNovo>("TTratadorNovo");

const tavru::TRegistraTratador Repetido(QStringLiteral("XML"), tavru::TTratadorDeArquivosXML::Classe,
                                        QStringLiteral("Repetido (*.rep)|*.rep"), QString());
const tavru::TRegistraTratador Novo(QStringLiteral("Novo"), TTratadorNovo::Classe,
                                    QStringLiteral("Novo (*.nov)|*.nov"), QString());

} // namespace

#include <tavru/formats/TTratadorDeShapeFile.h>

#include <QIODevice>

namespace tavru {

const TClasseTratador TTratadorDeShapeFile::Classe = TClasseTratador::De<TTratadorDeShapeFile>("TTratadorDeShapeFile");

TTratadorDeShapeFile::TTratadorDeShapeFile(TGISObjetoList &lista) : TGISTratadorDeArquivo(lista)
{
    const QStringList filtro{QStringLiteral("Arquivo ShapeFile (*.shp)|*.shp")};
    AtribuirFiltroLeitura(filtro);
    AtribuirFiltroGravacao(filtro);
}

bool TTratadorDeShapeFile::Reconhece(QIODevice &fluxo)
{
    const QByteArray inicio = fluxo.peek(4);
    return inicio.size() == 4 && inicio == QByteArray("\x00\x00\x27\x0a", 4);
}

} // namespace tavru

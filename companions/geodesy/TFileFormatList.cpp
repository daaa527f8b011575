#include <tavru/companions/geodesy/TFileFormatList.h>

#include <QMutex>
#include <QMutexLocker>

#include <algorithm>

namespace tavru {

namespace {

struct TListaDeFormatos
{
    QMutex Mutex;
    std::vector<TFormatoGrafico> Formatos;
};

TListaDeFormatos &Lista()
{
    // Nunca destruída: as unidades de formato se removem nos destrutores estáticos delas, que
    // podem rodar depois do desta.
    static TListaDeFormatos *lista = new TListaDeFormatos;
    return *lista;
}

QString SemPonto(const QString &extensao)
{
    return (extensao.startsWith(QLatin1Char('.')) ? extensao.mid(1) : extensao).toLower();
}

} // namespace

void TFileFormatList::Registrar(const TFormatoGrafico &formato)
{
    TListaDeFormatos &lista = Lista();
    const QMutexLocker trava(&lista.Mutex);
    lista.Formatos.push_back(formato);
}

void TFileFormatList::Remover(const QString &extensao)
{
    TListaDeFormatos &lista = Lista();
    const QString procurada = SemPonto(extensao);
    const QMutexLocker trava(&lista.Mutex);
    lista.Formatos.erase(std::remove_if(lista.Formatos.begin(), lista.Formatos.end(),
                                        [&](const TFormatoGrafico &f) {
                                            return !f.Extensoes.isEmpty() && f.Extensoes.first() == procurada;
                                        }),
                         lista.Formatos.end());
}

bool TFileFormatList::GraphicFromExtension(const QString &extensao, TFormatoGrafico &formato)
{
    TListaDeFormatos &lista = Lista();
    const QString procurada = SemPonto(extensao);
    const QMutexLocker trava(&lista.Mutex);
    for (const TFormatoGrafico &f : lista.Formatos)
        if (f.Extensoes.contains(procurada)) {
            formato = f;
            return true;
        }
    return false;
}

std::vector<TFormatoGrafico> TFileFormatList::Formatos()
{
    TListaDeFormatos &lista = Lista();
    const QMutexLocker trava(&lista.Mutex);
    return lista.Formatos;
}

QString TFileFormatList::GetGraphicFilter()
{
    QStringList todos;
    QString pares;
    for (const TFormatoGrafico &f : Formatos()) {
        QStringList padroes;
        for (const QString &e : f.Extensoes)
            padroes.append(QStringLiteral("*.") + e);
        todos.append(padroes);
        const QString juntos = padroes.join(QLatin1Char(';'));
        pares += QStringLiteral("|%1 (%2)|%2").arg(f.Descricao, juntos);
    }
    todos.removeDuplicates();
    return QStringLiteral("All Images (%1)|%1").arg(todos.join(QLatin1Char(';'))) + pares;
}

} // namespace tavru

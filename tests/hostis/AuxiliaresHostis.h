#pragma once
// Auxiliares do grupo de entradas hostis: escrever bytes num arquivo e um disco pequeno de verdade.

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <sys/mount.h>
#include <unistd.h>

namespace tavru::teste {

inline bool Escrever(const QString &nome, const QByteArray &bytes)
{
    QFile f(nome);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
}

inline QByteArray Conteudo(const QString &nome)
{
    QFile f(nome);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

/// Um tmpfs de 64 KiB montado numa pasta temporária, quando os testes rodam como root e o sistema
/// deixa montar; desmontado no fim. `Montado()` falso: o teste que precisa dele é pulado.
class TDiscoPequeno
{
public:
    TDiscoPequeno()
    {
        if (::geteuid() == 0 && FPasta.isValid())
            FMontado = ::mount("tmpfs", QFile::encodeName(FPasta.path()).constData(), "tmpfs", 0, "size=64k") == 0;
    }
    ~TDiscoPequeno()
    {
        if (FMontado)
            ::umount2(QFile::encodeName(FPasta.path()).constData(), MNT_DETACH);
    }
    TDiscoPequeno(const TDiscoPequeno &) = delete;
    TDiscoPequeno &operator=(const TDiscoPequeno &) = delete;

    bool Montado() const { return FMontado; }
    QString Caminho(const QString &nome) const { return FPasta.filePath(nome); }
    /// Remonta somente leitura.
    bool SomenteLeitura()
    {
        return ::mount("tmpfs", QFile::encodeName(FPasta.path()).constData(), "tmpfs", MS_REMOUNT | MS_RDONLY,
                       "size=64k")
               == 0;
    }

private:
    QTemporaryDir FPasta;
    bool FMontado = false;
};

} // namespace tavru::teste

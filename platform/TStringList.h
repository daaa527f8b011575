#pragma once
/// \file
/// Lista de textos em que cada item leva um ponteiro anexado (o "objeto" do item), como a lista
/// de textos da plataforma. A lista nunca possui os objetos anexados: quem os anexa decide o
/// destino deles. Índices fora dos limites levantam `EListError`. `IndexOf` compara exatamente,
/// diferenciando maiúsculas, a menos que `CaseSensitive` seja desligado.

#include <tavru/platform/Exception.h>

#include <QString>
#include <QStringList>
#include <vector>

namespace tavru {

class TAVRU_PLATAFORMA_EXPORT TStringList
{
public:
    bool CaseSensitive = true;

    int Count() const { return static_cast<int>(FItens.size()); }
    const QString &Strings(int i) const;
    void SetStrings(int i, const QString &s);
    void *Objects(int i) const;
    template <typename T> T *Objeto(int i) const { return static_cast<T *>(Objects(i)); }
    void SetObjects(int i, void *objeto);

    int Add(const QString &s) { return AddObject(s, nullptr); }
    int AddObject(const QString &s, void *objeto);
    void Insert(int i, const QString &s, void *objeto = nullptr);
    void Delete(int i);
    void Clear() { FItens.clear(); }
    int IndexOf(const QString &s) const;
    int IndexOfObject(const void *objeto) const;
    void Exchange(int i, int j);

    /// Os textos, na ordem.
    QStringList Textos() const;
    /// Substitui o conteúdo pelos textos dados (sem objetos).
    void AtribuirTextos(const QStringList &textos);
    /// Todos os textos, separados por "\r\n" e terminados por "\r\n" (como `Text` da plataforma).
    QString Text() const;
    void Assign(const TStringList &outra) { FItens = outra.FItens; }

private:
    struct Item
    {
        QString Texto;
        void *Objeto;
    };
    void Verificar(int i) const;
    std::vector<Item> FItens;
};

} // namespace tavru

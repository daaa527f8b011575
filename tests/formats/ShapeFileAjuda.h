#pragma once
// Ajuda dos testes de Shapefiles: uma pasta temporária, Shapefiles montados à mão pelo shapelib
// e atalhos de leitura pelo tratador.

#include <tavru/core/TGISObjetoList.h>
#include <tavru/formats/ReconheceArquivoShapeFile.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <shapefil.h>

#include <string>
#include <vector>

namespace teste {

/// Uma forma para `Criar`: tipo do shapelib, partes (início de cada uma) e vértices (x, y).
struct TFormaShp
{
    int Tipo;
    std::vector<int> Partes;
    std::vector<double> X, Y;
};

class ShapeFile : public ::testing::Test
{
protected:
    QString Caminho(const QString &nome) const { return FPasta.filePath(nome); }
    QStringList Arquivos() const { return QDir(FPasta.path()).entryList(QDir::Files, QDir::Name); }
    static std::string Local(const QString &caminho) { return QFile::encodeName(caminho).toStdString(); }
    static void Escrever(const QString &caminho, const QByteArray &bytes)
    {
        QFile f(caminho);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(bytes);
    }
    static QByteArray Bytes(const QString &caminho)
    {
        QFile f(caminho);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }

    /// Cria `base`.shp/.shx do tipo dado com as formas, e (com campos) `base`.dbf com um campo de
    /// texto por nome e os valores crus de cada registro; `codigo` vai para DBFCreateEx ("LDID/87",
    /// ou nulo).
    void Criar(const QString &base, int tipo, const std::vector<TFormaShp> &formas, const std::vector<const char *> &campos = {},
               const std::vector<std::vector<const char *>> &valores = {}, const char *codigo = nullptr)
    {
        SHPHandle shp = SHPCreate(Local(base).c_str(), tipo);
        ASSERT_NE(shp, nullptr);
        for (const TFormaShp &f : formas) {
            SHPObject *o = SHPCreateObject(f.Tipo, -1, static_cast<int>(f.Partes.size()), f.Partes.data(), nullptr,
                                           static_cast<int>(f.X.size()), f.X.data(), f.Y.data(), nullptr, nullptr);
            SHPWriteObject(shp, -1, o);
            SHPDestroyObject(o);
        }
        SHPClose(shp);
        if (campos.empty())
            return;
        DBFHandle dbf = DBFCreateEx(Local(base + ".dbf").c_str(), codigo);
        ASSERT_NE(dbf, nullptr);
        for (const char *c : campos)
            DBFAddField(dbf, c, FTString, 40, 0);
        for (std::size_t r = 0; r < valores.size(); ++r)
            for (std::size_t c = 0; c < valores[r].size(); ++c)
                DBFWriteStringAttribute(dbf, static_cast<int>(r), static_cast<int>(c), valores[r][c]);
        DBFClose(dbf);
    }

    /// Lê pelo tratador com as opções dadas.
    static void Ler(tavru::TGISObjetoList &lista, const QString &nome, const tavru::TOpcoesLeituraShapeFile &opcoes = {})
    {
        tavru::TTratadorDeShapeFile tratador(lista);
        tratador.AtribuirOpcoes(opcoes);
        tratador.Ler(nome);
    }

    QTemporaryDir FPasta;
};

/// Confere que `f` lança E com uma mensagem que contém `trecho`.
template <typename E, typename F>
void EsperarErro(F f, const char *trecho)
{
    try {
        f();
        ADD_FAILURE() << "sem erro; esperava: " << trecho;
    } catch (const E &e) {
        EXPECT_NE(std::string(e.what()).find(trecho), std::string::npos) << e.what();
    }
}

} // namespace teste

#pragma once
// Ajuda dos testes do documento XML: os ajustes da unidade devolvidos a cada teste, uma pasta
// temporária e atalhos para ler e gravar objetos e documentos.

#include <tavru/core/TGISObjetoList.h>
#include <tavru/xml/ReconheceArquivoXML.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace teste {

class DocumentoXML : public ::testing::Test
{
protected:
    void TearDown() override
    {
        tavru::TAG_RAIZ = FTagRaiz;
        tavru::CABECALHO = FCabecalho;
        tavru::USAR_TABELA_DE_SIMBOLOS = false;
        tavru::ESCAPAR_TEXTOS = false;
    }

    QString Caminho(const QString &nome) const { return FPasta.filePath(nome); }
    QStringList Arquivos() const { return QDir(FPasta.path()).entryList(QDir::Files); }
    static QByteArray Bytes(const QString &caminho)
    {
        QFile f(caminho);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    static void Escrever(const QString &caminho, const QByteArray &bytes)
    {
        QFile f(caminho);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    /// Um documento ISO-8859-1 novo com a raiz e o corpo dados.
    QString Documento(const QString &corpo, const QString &raiz = "CAMADA")
    {
        const QString caminho = Caminho(QStringLiteral("doc%1.xml").arg(++FDocumentos));
        Escrever(caminho, QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<%1>\r\n%2\r\n</%1>\r\n")
                              .arg(raiz, corpo)
                              .toLatin1());
        return caminho;
    }
    static void Ler(tavru::TGISObjetoList &l, const QString &nome) { tavru::TTratadorDeArquivosXML(l).Ler(nome); }
    static void Gravar(tavru::TGISObjetoList &l, const QString &nome) { tavru::TTratadorDeArquivosXML(l).Gravar(nome); }
    /// O objeto de um elemento solto, na classe esperada (nulo se vier outra).
    template <typename T>
    static std::unique_ptr<T> Objeto(const QString &elemento)
    {
        std::unique_ptr<tavru::TGISObjeto> o = tavru::TTratadorDeArquivosXML::ObterObjeto(elemento);
        return std::unique_ptr<T>(dynamic_cast<T *>(o.get()) ? static_cast<T *>(o.release()) : nullptr);
    }
    /// As linhas que o gravador escreve para um objeto.
    static QStringList Linhas(const tavru::TGISObjeto &objeto)
    {
        QStringList linhas;
        tavru::TTratadorDeArquivosXML::GravarObjeto(linhas, objeto);
        return linhas;
    }

private:
    QTemporaryDir FPasta;
    QString FTagRaiz = tavru::TAG_RAIZ;
    QString FCabecalho = tavru::CABECALHO;
    int FDocumentos = 0;
};

} // namespace teste

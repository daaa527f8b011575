#pragma once
/// \file
/// Arquivos comuns do sistema: abrir para leitura só o que é um arquivo comum, gravar inteiro ao
/// lado e renomear, e os motivos do sistema operacional em português.
///
/// Quem lê dados de fora abre por aqui: um FIFO, um dispositivo ou uma pasta com o nome de um
/// documento ou de um arquivo ao lado de uma figura nunca trava a leitura nem é lido como dados.

#include <tavru/platform/Exportacao.h>

#include <QByteArray>
#include <QFile>
#include <QString>
#include <memory>

namespace tavru {

/// O motivo de um código de erro do sistema (`errno`) em português, para mensagens: "sem espaço
/// no disco" (ENOSPC, EDQUOT), "permissão negada" (EACCES, EPERM), "arquivo ou pasta não
/// encontrado" (ENOENT, ENOTDIR), "é uma pasta" (EISDIR), "sistema de arquivos somente leitura"
/// (EROFS), "arquivo grande demais" (EFBIG), "memória insuficiente" (ENOMEM) e "erro de entrada e
/// saída" (EIO); outro código dá o texto do sistema com o número ("erro do sistema 71: ...").
TAVRU_PLATAFORMA_EXPORT QString MotivoDoSistema(int codigo);

/// Abre `nome` para leitura só quando é um arquivo comum (ou um recurso do Qt, ":/..."); o teste
/// e a abertura são um passo só, sem esperar por quem escreve num FIFO.
/// \returns o arquivo aberto (possuído por quem chama), ou nulo quando não existe nada com esse nome.
/// \throws EInOutError com o nome quando existe mas não é um arquivo comum (pasta, FIFO,
///         dispositivo, soquete) ou não abre (o motivo do sistema em português).
TAVRU_PLATAFORMA_EXPORT std::unique_ptr<QFile> AbrirArquivoComum(const QString &nome);

/// Grava `bytes` em `nome` inteiro ou nada: escreve num arquivo novo na mesma pasta, leva-o ao
/// disco (`fsync`) e só então o renomeia por cima de `nome`, com as permissões do arquivo anterior
/// quando havia. Uma falha apaga o arquivo novo e deixa o anterior como estava.
/// \returns vazio quando gravou; senão o motivo em português (`MotivoDoSistema`, ou "é uma pasta"
///          quando `nome` é uma pasta).
TAVRU_PLATAFORMA_EXPORT QString GravarArquivoComum(const QString &nome, const QByteArray &bytes);

} // namespace tavru

#include <tavru/platform/ArquivoComum.h>

#include <tavru/platform/Exception.h>

#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstring>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <QSaveFile>
#endif

namespace tavru {

namespace {

[[noreturn]] void NaoAbre(const QString &nome, const QString &motivo)
{
    throw EInOutError(QStringLiteral("Não foi possível abrir o arquivo \"%1\": %2.").arg(nome, motivo));
}

#ifdef Q_OS_UNIX
[[noreturn]] void NaoEhComum(const QString &nome, mode_t modo)
{
    const QString tipo = S_ISDIR(modo)                     ? QStringLiteral("é uma pasta")
                         : S_ISFIFO(modo)                  ? QStringLiteral("é um FIFO")
                         : S_ISCHR(modo) || S_ISBLK(modo)  ? QStringLiteral("é um dispositivo")
                         : S_ISSOCK(modo)                  ? QStringLiteral("é um soquete")
                                                           : QStringLiteral("não é um arquivo comum");
    throw EInOutError(QStringLiteral("O arquivo \"%1\" não foi lido: %2, e só arquivos comuns são lidos.").arg(nome, tipo));
}
#endif

} // namespace

QString MotivoDoSistema(int codigo)
{
    switch (codigo) {
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return QStringLiteral("sem espaço no disco");
    case EACCES:
    case EPERM: return QStringLiteral("permissão negada");
    case ENOENT:
    case ENOTDIR: return QStringLiteral("arquivo ou pasta não encontrado");
    case EISDIR: return QStringLiteral("é uma pasta");
    case EROFS: return QStringLiteral("sistema de arquivos somente leitura");
    case EFBIG: return QStringLiteral("arquivo grande demais");
    case ENOMEM: return QStringLiteral("memória insuficiente");
    case EIO: return QStringLiteral("erro de entrada e saída");
    default: break;
    }
    return QStringLiteral("erro do sistema %1: %2").arg(codigo).arg(QString::fromLocal8Bit(std::strerror(codigo)));
}

std::unique_ptr<QFile> AbrirArquivoComum(const QString &nome)
{
    if (nome.startsWith(QLatin1Char(':')) || nome.startsWith(QLatin1String("qrc:"))) {
        // Recursos do Qt são sempre arquivos comuns.
        auto recurso = std::make_unique<QFile>(nome);
        if (!recurso->exists())
            return nullptr;
        if (!recurso->open(QIODevice::ReadOnly))
            NaoAbre(nome, recurso->errorString());
        return recurso;
    }
#ifdef Q_OS_UNIX
    const QByteArray caminho = QFile::encodeName(nome);
    // Primeiro sem abrir (abrir um dispositivo pode ter efeito); depois abre sem esperar e confere
    // o que foi aberto, porque o nome pode ter mudado entre um passo e o outro.
    struct stat st;
    if (::stat(caminho.constData(), &st) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return nullptr;
        NaoAbre(nome, MotivoDoSistema(errno));
    }
    if (!S_ISREG(st.st_mode))
        NaoEhComum(nome, st.st_mode);
    int fd;
    do
        fd = ::open(caminho.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    while (fd < 0 && errno == EINTR);
    if (fd < 0) {
        if (errno == ENOENT)
            return nullptr;
        NaoAbre(nome, MotivoDoSistema(errno));
    }
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        const mode_t modo = st.st_mode;
        ::close(fd);
        NaoEhComum(nome, modo);
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    auto arquivo = std::make_unique<QFile>();
    if (!arquivo->open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        NaoAbre(nome, arquivo->errorString());
    }
    return arquivo;
#else
    const QFileInfo info(nome);
    if (!info.exists())
        return nullptr;
    if (!info.isFile())
        throw EInOutError(QStringLiteral("O arquivo \"%1\" não foi lido: não é um arquivo comum.").arg(nome));
    auto arquivo = std::make_unique<QFile>(nome);
    if (!arquivo->open(QIODevice::ReadOnly))
        NaoAbre(nome, arquivo->errorString());
    return arquivo;
#endif
}

QString GravarArquivoComum(const QString &nome, const QByteArray &bytes)
{
    // Um link simbólico continua link: grava-se no arquivo para onde ele aponta.
    QFileInfo info(nome);
    if (info.isSymLink() && !info.canonicalFilePath().isEmpty())
        info = QFileInfo(info.canonicalFilePath());
    if (info.isDir())
        return MotivoDoSistema(EISDIR);
#ifdef Q_OS_UNIX
    const QByteArray destino = QFile::encodeName(info.absoluteFilePath());
    struct stat anterior;
    const bool havia = ::stat(destino.constData(), &anterior) == 0;
    QByteArray novo;
    int fd = -1;
    for (int tentativa = 0; tentativa < 100 && fd < 0; ++tentativa) {
        novo = QFile::encodeName(QStringLiteral("%1/.%2.%3.tmp")
                                     .arg(info.absolutePath(), info.fileName())
                                     .arg(QRandomGenerator::global()->generate(), 0, 36));
        fd = ::open(novo.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0 && errno != EEXIST && errno != EINTR)
            break;
    }
    if (fd < 0)
        return MotivoDoSistema(errno);
    const auto desistir = [&](int codigo) {
        ::close(fd);
        ::unlink(novo.constData());
        return MotivoDoSistema(codigo);
    };
    if (havia)
        (void)::fchmod(fd, anterior.st_mode & 07777);
    const char *p = bytes.constData();
    qsizetype faltam = bytes.size();
    while (faltam > 0) {
        const ssize_t n = ::write(fd, p, static_cast<size_t>(faltam));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return desistir(n < 0 ? errno : ENOSPC);
        p += n;
        faltam -= n;
    }
    if (::fsync(fd) != 0)
        return desistir(errno);
    if (::close(fd) != 0) {
        const int codigo = errno;
        ::unlink(novo.constData());
        return MotivoDoSistema(codigo);
    }
    if (::rename(novo.constData(), destino.constData()) != 0) {
        const int codigo = errno;
        ::unlink(novo.constData());
        return MotivoDoSistema(codigo);
    }
    return QString();
#else
    QSaveFile arquivo(info.absoluteFilePath());
    if (!arquivo.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || arquivo.write(bytes) != bytes.size()
        || !arquivo.commit())
        return arquivo.errorString();
    return QString();
#endif
}

} // namespace tavru

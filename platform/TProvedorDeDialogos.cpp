#include <tavru/platform/TProvedorDeDialogos.h>

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>

namespace tavru {

namespace {

std::unique_ptr<TProvedorDeDialogos> &Corrente()
{
    static std::unique_ptr<TProvedorDeDialogos> corrente = std::make_unique<TDialogosQt>();
    return corrente;
}

QWidget *JanelaAtiva()
{
    return QApplication::activeWindow();
}

} // namespace

TProvedorDeDialogos &Dialogos()
{
    return *Corrente();
}

std::unique_ptr<TProvedorDeDialogos> TrocarDialogos(std::unique_ptr<TProvedorDeDialogos> novo)
{
    if (!novo)
        novo = std::make_unique<TDialogosQt>();
    std::swap(novo, Corrente());
    return novo;
}

QString TProvedorDeDialogos::InputBox(const QString &titulo, const QString &pergunta, const QString &padrao)
{
    QString valor = padrao;
    return InputQuery(titulo, pergunta, valor) ? valor : padrao;
}

bool TProvedorDeDialogos::ExecutarDialogo(QDialog &dialogo)
{
    return dialogo.exec() == QDialog::Accepted;
}

QString TProvedorDeDialogos::ParDoFiltro(const QString &filtro, int indice)
{
    const QStringList partes = filtro.split(QLatin1Char('|'));
    const int i = (indice - 1) * 2;
    if (indice < 1 || i + 1 >= partes.size())
        return QString();
    return partes[i] + QLatin1Char('|') + partes[i + 1];
}

// ---- Qt ----

QString TDialogosQt::FiltroQt(const QString &filtro)
{
    const QStringList partes = filtro.split(QLatin1Char('|'));
    QStringList pares;
    for (int i = 0; i + 1 < partes.size(); i += 2) {
        // O Qt lê os padrões do último parêntese, separados por espaço: o da descrição da casa
        // ("Arquivos XML (*.xml)") dá lugar a ele, para não aparecer duas vezes.
        QString descricao = partes[i];
        const qsizetype abre = descricao.lastIndexOf(QStringLiteral(" ("));
        if (abre > 0 && descricao.endsWith(QLatin1Char(')')))
            descricao.truncate(abre);
        QString padroes = partes[i + 1];
        padroes.replace(QLatin1Char(';'), QLatin1Char(' '));
        pares << descricao + QStringLiteral(" (") + padroes + QLatin1Char(')');
    }
    return pares.join(QStringLiteral(";;"));
}

bool TDialogosQt::InputQuery(const QString &titulo, const QString &pergunta, QString &valor)
{
    bool ok = false;
    const QString r = QInputDialog::getText(JanelaAtiva(), titulo, pergunta, QLineEdit::Normal, valor, &ok);
    if (ok)
        valor = r;
    return ok;
}

static bool DialogoArquivo(bool abrir, const QString &titulo, const QString &filtro, QString &nome, int &indiceFiltro)
{
    const QString filtroQt = TDialogosQt::FiltroQt(filtro);
    const QStringList filtros = filtroQt.split(QStringLiteral(";;"));
    QString escolhido = filtros.value(std::max(0, indiceFiltro - 1));
    const QString r = abrir ? QFileDialog::getOpenFileName(JanelaAtiva(), titulo, nome, filtroQt, &escolhido)
                            : QFileDialog::getSaveFileName(JanelaAtiva(), titulo, nome, filtroQt, &escolhido);
    if (r.isEmpty())
        return false;
    nome = r;
    indiceFiltro = std::max(0, static_cast<int>(filtros.indexOf(escolhido))) + 1;
    return true;
}

bool TDialogosQt::AbrirArquivo(const QString &titulo, const QString &filtro, QString &nome, int &indiceFiltro)
{
    return DialogoArquivo(true, titulo, filtro, nome, indiceFiltro);
}

bool TDialogosQt::SalvarArquivo(const QString &titulo, const QString &filtro, QString &nome, int &indiceFiltro)
{
    return DialogoArquivo(false, titulo, filtro, nome, indiceFiltro);
}

bool TDialogosQt::EscolherFonte(TFont &fonte)
{
    bool ok = false;
    const QFont f = QFontDialog::getFont(&ok, fonte.ParaQFont(), JanelaAtiva());
    if (!ok)
        return false;
    fonte.AtribuirQFont(f);
    return true;
}

bool TDialogosQt::Mensagem(const QString &texto, const QString &titulo, TTipoMensagem tipo)
{
    switch (tipo) {
    case mtConfirmacao:
        return QMessageBox::question(JanelaAtiva(), titulo, texto) == QMessageBox::Yes;
    case mtErro: QMessageBox::critical(JanelaAtiva(), titulo, texto); break;
    case mtAviso: QMessageBox::warning(JanelaAtiva(), titulo, texto); break;
    case mtInformacao: QMessageBox::information(JanelaAtiva(), titulo, texto); break;
    }
    return true;
}

// ---- roteirizados ----

bool TDialogosRoteirizados::InputQuery(const QString &titulo, const QString &pergunta, QString &valor)
{
    Perguntas << QStringLiteral("texto: %1: %2").arg(titulo, pergunta);
    if (Textos.empty())
        return false;
    const std::optional<QString> r = Textos.front();
    Textos.pop_front();
    if (!r)
        return false;
    valor = *r;
    return true;
}

bool TDialogosRoteirizados::Arquivo(const QString &tipo, const QString &titulo, QString &nome, int &indiceFiltro)
{
    Perguntas << QStringLiteral("%1: %2: %3").arg(tipo, titulo, nome);
    if (Arquivos.empty())
        return false;
    const auto r = Arquivos.front();
    Arquivos.pop_front();
    if (!r)
        return false;
    nome = r->first;
    indiceFiltro = r->second;
    return true;
}

bool TDialogosRoteirizados::AbrirArquivo(const QString &titulo, const QString &filtro, QString &nome, int &indiceFiltro)
{
    Perguntas << QStringLiteral("filtro: %1").arg(filtro);
    return Arquivo(QStringLiteral("abrir"), titulo, nome, indiceFiltro);
}

bool TDialogosRoteirizados::SalvarArquivo(const QString &titulo, const QString &filtro, QString &nome, int &indiceFiltro)
{
    Perguntas << QStringLiteral("filtro: %1").arg(filtro);
    return Arquivo(QStringLiteral("salvar"), titulo, nome, indiceFiltro);
}

bool TDialogosRoteirizados::EscolherFonte(TFont &fonte)
{
    Perguntas << QStringLiteral("fonte: %1").arg(fonte.Name);
    if (Fontes.empty())
        return false;
    const auto r = Fontes.front();
    Fontes.pop_front();
    if (!r)
        return false;
    fonte = *r;
    return true;
}

bool TDialogosRoteirizados::Mensagem(const QString &texto, const QString &titulo, TTipoMensagem tipo)
{
    Perguntas << QStringLiteral("mensagem: %1: %2").arg(titulo, texto);
    Mensagens << texto;
    if (tipo != mtConfirmacao)
        return true;
    if (Confirmacoes.empty())
        return false;
    const bool r = Confirmacoes.front();
    Confirmacoes.pop_front();
    return r;
}

bool TDialogosRoteirizados::ExecutarDialogo(QDialog &dialogo)
{
    Perguntas << QStringLiteral("diálogo: %1").arg(dialogo.windowTitle());
    if (Roteiros.empty())
        return false;
    const std::function<bool(QDialog &)> roteiro = std::move(Roteiros.front());
    Roteiros.pop_front();
    return roteiro && roteiro(dialogo);
}

} // namespace tavru

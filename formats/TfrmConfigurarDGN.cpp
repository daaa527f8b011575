#include <tavru/formats/TfrmConfigurarDGN.h>

#include <tavru/companions/geodesy/UTM.h>
#include <tavru/elements/GISImagem.h>
#include <tavru/platform/Exception.h>
#include <tavru/platform/TProvedorDeDialogos.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSaveFile>
#include <QSpinBox>
#include <QStringDecoder>
#include <QVBoxLayout>
#include <climits>

namespace tavru {

namespace {

constexpr qint64 LimiteDoArquivoGeo = 64 * 1024;

/// O valor da primeira linha "chave=valor" da chave (sem olhar maiúsculas), ou vazio.
QString Valor(const QStringList &linhas, const QString &chave)
{
    for (const QString &linha : linhas) {
        const qsizetype igual = linha.indexOf(QLatin1Char('='));
        if (igual >= 0 && linha.left(igual).compare(chave, Qt::CaseInsensitive) == 0)
            return linha.mid(igual + 1);
    }
    return QString();
}

int ParaInteiro(const QString &texto)
{
    bool ok = false;
    const int valor = texto.trimmed().toInt(&ok);
    if (!ok)
        throw EConvertError(QStringLiteral("'%1' não é um valor inteiro válido").arg(texto));
    return valor;
}

} // namespace

TfrmConfigurarDGN::TfrmConfigurarDGN(QWidget *parent)
    : QDialog(parent),
      FElipsoide(new QComboBox(this)),
      FZona(new QComboBox(this)),
      FFuso(new QSpinBox(this)),
      FKilometros(new QRadioButton(QStringLiteral("Kilômetros"), this)),
      FMetros(new QRadioButton(QStringLiteral("Metros"), this))
{
    setWindowTitle(QStringLiteral("Configuração da carta DGN"));

    FElipsoide->addItems(NomesElipsoides());
    FZona->addItems(QStringLiteral("X W V U T S R Q P N M L K J H G F E D C").split(QLatin1Char(' ')));
    FZona->setCurrentText(QStringLiteral("K"));
    FFuso->setRange(INT_MIN, INT_MAX);
    FFuso->setValue(33);
    FMetros->setChecked(true);

    auto *rotulo = new QLabel(QStringLiteral("Elipsóide Referência"), this);
    rotulo->setBuddy(FElipsoide);

    auto *reticulado = new QGroupBox(QStringLiteral(" Reticulado UTM "), this);
    auto *formulario = new QFormLayout(reticulado);
    formulario->addRow(QStringLiteral("Zona"), FZona);
    formulario->addRow(QStringLiteral("Fuso"), FFuso);

    auto *unidade = new QGroupBox(QStringLiteral(" Unidade "), this);
    auto *colunas = new QGridLayout(unidade);
    colunas->addWidget(FKilometros, 0, 0);
    colunas->addWidget(FMetros, 0, 1);

    auto *botoes = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    botoes->button(QDialogButtonBox::Ok)->setText(QStringLiteral("OK"));
    botoes->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancelar"));
    connect(botoes, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(botoes, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *coluna = new QVBoxLayout(this);
    coluna->addWidget(rotulo);
    coluna->addWidget(FElipsoide);
    coluna->addWidget(reticulado);
    coluna->addWidget(unidade);
    coluna->addWidget(botoes);
}

QString TfrmConfigurarDGN::ArquivoGeo() const
{
    return TGISImagem::NomeArquivoGEO(FArquivo);
}

bool TfrmConfigurarDGN::Ler()
{
    const QString nome = ArquivoGeo();
    if (!QFileInfo::exists(nome))
        return false;
    QFile arquivo(nome);
    if (!arquivo.open(QIODevice::ReadOnly))
        throw EInOutError(QStringLiteral("Não foi possível ler %1: %2").arg(nome, arquivo.errorString()));
    const QByteArray bytes = arquivo.read(LimiteDoArquivoGeo);

    QStringDecoder utf8(QStringDecoder::Utf8);
    QString texto = utf8(bytes);
    if (utf8.hasError())
        texto = QString::fromLatin1(bytes);
    QStringList linhas = texto.split(QLatin1Char('\n'));
    for (QString &linha : linhas) {
        if (linha.endsWith(QLatin1Char('\r')))
            linha.chop(1);
    }

    FFuso->setValue(ParaInteiro(Valor(linhas, QStringLiteral("Fuso"))));
    FZona->setCurrentIndex(FZona->findText(Valor(linhas, QStringLiteral("Zona"))));
    FElipsoide->setCurrentIndex(FElipsoide->findText(Valor(linhas, QStringLiteral("Elipsoide"))));
    const bool km = Valor(linhas, QStringLiteral("Unidade")).toLower() == QLatin1String("kilometros");
    FKilometros->setChecked(km);
    FMetros->setChecked(!km);
    return true;
}

void TfrmConfigurarDGN::Gravar()
{
    const QString nome = ArquivoGeo();
    const QString texto = QStringLiteral("Fuso=%1\r\nZona=%2\r\nElipsoide=%3\r\nUnidade=%4\r\n")
                              .arg(QString::number(FFuso->value()), FZona->currentText(),
                                   FElipsoide->currentText(),
                                   FKilometros->isChecked() ? QStringLiteral("kilometros") : QStringLiteral("metros"));
    QSaveFile arquivo(nome);
    if (!arquivo.open(QIODevice::WriteOnly) || arquivo.write(texto.toLatin1()) < 0 || !arquivo.commit())
        throw EInOutError(QStringLiteral("Não foi possível gravar %1: %2").arg(nome, arquivo.errorString()));
}

bool TfrmConfigurarDGN::Executar(const QString &arquivo, QString &zona, std::int32_t &elipsoide, double &fator)
{
    TfrmConfigurarDGN dialogo;
    dialogo.AtribuirArquivo(arquivo);
    const bool km = fator != 1.0;
    dialogo.FKilometros->setChecked(km);
    dialogo.FMetros->setChecked(!km);
    dialogo.FFuso->setValue(ParaInteiro(zona.left(zona.size() - 1)));
    dialogo.FZona->setCurrentIndex(dialogo.FZona->findText(zona.right(1)));
    dialogo.FElipsoide->setCurrentIndex(elipsoide >= 0 && elipsoide < dialogo.FElipsoide->count() ? elipsoide : -1);

    const bool mostrado = !dialogo.Ler();
    if (mostrado && !Dialogos().ExecutarDialogo(dialogo))
        return false;

    fator = dialogo.FKilometros->isChecked() ? 1000.0 : 1.0;
    zona = QString::number(dialogo.FFuso->value()) + dialogo.FZona->currentText();
    elipsoide = dialogo.FElipsoide->currentIndex();
    if (mostrado)
        dialogo.Gravar();
    return true;
}

} // namespace tavru

#include "core/combos.h"

#include "core/banco.h"
#include "core/janelas.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/reasons.h"
#include "platform/ui/wait.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

constexpr qsizetype maiorEntrada = 200;
constexpr int maiorTexto = 250; ///< what the column of the lists holds; the limit above is told by a box

QString numero(ListaCombo lista)
{
    return QString::number(static_cast<int>(lista));
}

QString condicao(ListaCombo lista, const QString &texto)
{
    return u" WHERE Codigo = "_s + numero(lista) + u" AND Texto = '"_s + texto + u"'"_s;
}

/// The toolkit's own completion and its insertion by Enter would work against the lists of the table.
void prepara(QComboBox *combo)
{
    if (QLineEdit *linha = combo->lineEdit()) {
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->setCompleter(nullptr);
        linha->setMaxLength(std::min(linha->maxLength(), maiorTexto)); // the window's own column may hold less
    }
}

/// Fills the entries without a word to the window: only the text that is set afterwards is a change.
bool enche(QComboBox *combo, ListaCombo lista)
{
    dao::Recordset linhas =
        DBDados->OpenRecordset(u"SELECT Texto FROM Combos Where Codigo = "_s + numero(lista) + u" ORDER BY Texto"_s);
    const bool temLinhas = !linhas.Eof();
    const QSignalBlocker bloqueio(combo);
    combo->clear();
    for (; !linhas.Eof(); linhas.MoveNext()) {
        combo->addItem(NuloParaVazio(linhas.value(u"Texto")));
    }
    combo->setCurrentIndex(-1);
    return temLinhas;
}

void carrega(QComboBox *combo, ListaCombo lista, const QString &texto)
{
    const bool temLinhas = enche(combo, lista);
    combo->setProperty(propTextoAnterior, QString());
    combo->setEditText(texto);
    if (temLinhas && combo->isVisible()) {
        SelecionaTexto(combo);
    }
}

/// True when the text went into the list.
bool acrescenta(QComboBox *combo, ListaCombo lista)
{
    const QString texto = combo->currentText();
    if (texto.isEmpty()) {
        return false;
    }
    if (texto.size() > maiorEntrada) {
        Recusa(u"O Campo ultrapassou o limite máximo de caracteres (200)"_s, combo);
        return false;
    }
    if (!DBDados->OpenRecordset(u"SELECT Texto FROM Combos"_s + condicao(lista, texto)).Eof()) {
        SelecionaTexto(combo);
        return false;
    }
    AcrescentaLinha(u"Combos"_s, [&](dao::Recordset &linha) {
        linha[u"Codigo"] = static_cast<qint16>(lista);
        linha[u"Texto"] = texto;
    });
    return true;
}

/// The first entry that begins with `texto`, or -1.
int primeiraQueComeca(const QComboBox &combo, const QString &texto)
{
    const QString procurado = runtime::UCase(texto);
    for (int i = 0; i < combo.count(); ++i) {
        if (runtime::UCase(combo.itemText(i).left(texto.size())) == procurado) {
            return i;
        }
    }
    return -1;
}

/// Remembers the text for the next change, and tells whether this one took from the end of it. A letter typed over the
/// whole text that begins it takes nothing away.
bool apagou(QComboBox *combo)
{
    const QString antes = combo->property(propTextoAnterior).toString();
    const QString agora = combo->currentText();
    combo->setProperty(propTextoAnterior, agora);
    return !ui::userInserts(combo) && !antes.isEmpty() && antes.startsWith(agora);
}

void escreveEntrada(QComboBox *combo, const QString &entrada, qsizetype digitados)
{
    const QString digitado = combo->currentText();
    combo->setEditText(entrada);
    // What the completion put behind the typed part was not typed: the next letter replaces it and deletes nothing.
    combo->setProperty(propTextoAnterior, digitado);
    const int inicio = static_cast<int>(digitados);
    combo->lineEdit()->setSelection(inicio, static_cast<int>(entrada.size()) - inicio);
}

} // namespace

void AtualizaCombo(QComboBox *combo, ListaCombo lista, ModoCombo modo)
{
    prepara(combo);
    QString texto;
    if (modo == ModoCombo::Acrescenta) {
        texto = combo->currentText();
        if (!acrescenta(combo, lista)) {
            return;
        }
    } else if (modo == ModoCombo::Exclui) {
        DBDados->Execute(u"DELETE * FROM Combos"_s + condicao(lista, combo->currentText()));
    }
    carrega(combo, lista, texto);
}

void AutoCompletaCombo(QComboBox *combo)
{
    const QString texto = combo->currentText();
    if (apagou(combo) || !AutoCompletar || texto.isEmpty()) {
        return;
    }
    const int achada = primeiraQueComeca(*combo, texto);
    if (achada < 0 || combo->itemText(achada) == texto) {
        return;
    }
    const QString entrada = combo->itemText(achada);
    const QPointer<QComboBox> vivo(combo);
    ui::DoEvents();
    // Keys that came meanwhile were completed on their own: their text must not be lost.
    if (vivo && combo->currentText() == texto) {
        escreveEntrada(combo, entrada, texto.size());
    }
}

void LigaBotoesDaLista(QComboBox *combo, QWidget *acrescenta, QWidget *remove)
{
    const auto habilita = [=] {
        for (QWidget *botao : {acrescenta, remove}) {
            ui::enableIf(!combo->currentText().isEmpty(), botao, u"Digite o texto da lista"_s, combo);
        }
    };
    QObject::connect(combo, &QComboBox::editTextChanged, combo, [habilita] { ui::Application::run(habilita); });
    habilita();
}

} // namespace core

#include "core/campos.h"

#include "core/limites.h"
#include "core/modulo.h"
#include "core/textolongo.h"
#include "platform/dao/database.h"
#include "platform/ui/controls.h"
#include "platform/ui/form.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QScopedValueRollback>

#include <algorithm>

namespace core
{

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype tamanhoDoPrefixo = 3; ///< "cbo", "txt"

/// The place of a column in the row, or -1 where the statement does not bring it.
int lugarDe(const dao::Recordset &linha, QStringView coluna)
{
    for (int lugar = 0; lugar < linha.fieldCount(); ++lugar) {
        if (linha.field(lugar).name.compare(coluna, Qt::CaseInsensitive) == 0) {
            return lugar;
        }
    }
    return -1;
}

/// An option that is taken back means that the other one of its pair is chosen.
void poeOpcao(QRadioButton &opcao, bool ligada)
{
    if (ligada) {
        opcao.setChecked(true);
        return;
    }
    for (auto *irma : opcao.parentWidget()->findChildren<QRadioButton *>(Qt::FindDirectChildrenOnly)) {
        if (irma != &opcao) {
            irma->setChecked(true);
        }
    }
}

bool semDigitar(const QComboBox *lista)
{
    return lista != nullptr && !lista->isEditable();
}

Mostra mostraDe(const Campo &campo, std::span<const OutraMostra> outras)
{
    const auto outra = std::ranges::find(outras, campo.controle, &OutraMostra::controle);
    return outra == outras.end() ? campo.mostra : outra->mostra;
}

} // namespace

void GravaCampos(dao::Recordset &linha, std::span<const Campo> campos, Gravacao gravacao, const TextoDoControle &texto)
{
    for (const Campo &campo : campos) {
        if (campo.grava == nullptr) {
            continue;
        }
        const QString digitado = campo.controle.isEmpty() ? QString() : texto(campo.controle);
        if (const auto valor = campo.grava(digitado, gravacao)) {
            linha[campo.coluna] = *valor;
        }
    }
}

Campos::Campos(ui::Form &janela, std::span<const Campo> campos, std::span<const Verificacao> verificacoes)
    : janela_(janela), campos_(campos), verificacoes_(verificacoes)
{
}

// --- events

void Campos::liga()
{
    for (int i = 0; i < static_cast<int>(campos_.size()); ++i) {
        if (campo(i).controle.isEmpty()) {
            continue;
        }
        QWidget *alvo = controle(campo(i).controle);
        if (campo(i).tecla != nullptr) {
            janela_.filterKeys(alvo, campo(i).tecla);
        }
        if (campo(i).mascara == TipoMascara::Valor) {
            janela_.onLostFocus(alvo, this, &Campos::sai, i);
        } else if (campo(i).mascara || campo(i).lista) {
            janela_.onChange(alvo, this, &Campos::muda, i);
        }
        if (campo(i).mascara == TipoMascara::Data) {
            janela_.tidyPaste(alvo, DataColada);
        }
        if (campo(i).data) {
            LigaData(janela_, qobject_cast<QLineEdit *>(alvo), *campo(i).data);
        }
        if (campo(i).lista) {
            ligaLista(i);
        }
    }
}

void Campos::ligaLista(int indice)
{
    janela_.onClick(botao(campo(indice), u"Add"), this, &Campos::acrescenta, indice);
    janela_.onClick(botao(campo(indice), u"Remove"), this, &Campos::remove, indice);
}

void Campos::ligaBotoesDasListas() const
{
    for (const Campo &campo : campos_) {
        if (campo.lista) {
            LigaBotoesDaLista(combo(campo.controle), botao(campo, u"Add"), botao(campo, u"Remove"));
        }
    }
}

QAbstractButton *Campos::botao(const Campo &campo, QStringView fim) const
{
    const QString nome = u"btn"_s + campo.controle.mid(tamanhoDoPrefixo) + fim;
    return qobject_cast<QAbstractButton *>(controle(nome));
}

void Campos::muda(int indice)
{
    QWidget *alvo = controle(campo(indice).controle);
    if (escrevendo_) {
        AnotaTexto(alvo);
    } else if (campo(indice).lista) {
        AutoCompletaCombo(qobject_cast<QComboBox *>(alvo));
    } else {
        MascaraTexto(qobject_cast<QLineEdit *>(alvo), *campo(indice).mascara);
    }
}

void Campos::sai(int indice)
{
    MascaraTexto(qobject_cast<QLineEdit *>(controle(campo(indice).controle)), TipoMascara::Valor);
}

void Campos::acrescenta(int indice)
{
    AtualizaCombo(combo(campo(indice).controle), *campo(indice).lista, ModoCombo::Acrescenta);
}

void Campos::remove(int indice)
{
    AtualizaCombo(combo(campo(indice).controle), *campo(indice).lista, ModoCombo::Exclui);
}

// --- the row

void Campos::limita(const QString &tabela) const
{
    const dao::Recordset linhas = DBDados->OpenRecordset(tabela);
    for (const Campo &campo : campos_) {
        if (!campo.controle.isEmpty() && !campo.aceitaMaior && lugarDe(linhas, campo.coluna) >= 0) {
            LimitaAoCampo(controle(campo.controle), linhas, campo.coluna);
        }
    }
}

void Campos::carregaListas() const
{
    for (const Campo &campo : campos_) {
        if (campo.lista) {
            AtualizaCombo(combo(campo.controle), *campo.lista, ModoCombo::Carrega);
        }
    }
}

void Campos::mostra(const dao::Recordset &linha, std::span<const OutraMostra> outras, bool esvaziaFaltas)
{
    for (const Campo &campo : campos_) {
        if (campo.controle.isEmpty()) {
            continue;
        }
        const Mostra comoMostra = mostraDe(campo, outras);
        const int lugar = lugarDe(linha, campo.coluna);
        if (comoMostra != nullptr && lugar >= 0) {
            poeTexto(campo.controle, comoMostra(linha, lugar));
        } else if (esvaziaFaltas) {
            poeTexto(campo.controle, {});
        }
    }
}

void Campos::grava(dao::Recordset &linha, Gravacao gravacao) const
{
    GravaCampos(linha, campos_, gravacao, [this](QStringView nome) { return texto(nome); });
}

bool Campos::confere(Gravacao gravacao) const
{
    for (const Verificacao &verificacao : verificacoes_) {
        if (verificacao.soNaInclusao && gravacao == Gravacao::Alteracao) {
            continue;
        }
        if (!verificacao.aceita(texto(verificacao.controle))) {
            const QStringView foco = verificacao.foco.isEmpty() ? verificacao.controle : verificacao.foco;
            Recusa(verificacao.mensagem.toString(), controle(foco));
            return false;
        }
    }
    return true;
}

void Campos::limpa()
{
    for (const Campo &campo : campos_) {
        if (!campo.controle.isEmpty()) {
            poeTexto(campo.controle, {});
        }
    }
}

void Campos::foca() const
{
    for (const Campo &campo : campos_) {
        if (!campo.controle.isEmpty() && controle(campo.controle)->focusPolicy() != Qt::NoFocus) {
            controle(campo.controle)->setFocus();
            SelecionaTexto(controle(campo.controle));
            return;
        }
    }
}

// --- controls by name

QWidget *Campos::controle(QStringView nome) const
{
    auto *achado = janela_.findChild<QWidget *>(nome.toString());
    Q_ASSERT_X(achado, "Campos::controle", qPrintable(nome.toString()));
    return achado;
}

QComboBox *Campos::combo(QStringView nome) const
{
    return janela_.findChild<QComboBox *>(nome.toString());
}

QString Campos::texto(QStringView nome) const
{
    const QWidget *alvo = controle(nome);
    if (const auto *opcao = qobject_cast<const QRadioButton *>(alvo)) {
        return opcao->isChecked() ? u"-1"_s : u"0"_s;
    }
    if (const auto *lista = qobject_cast<const QComboBox *>(alvo); semDigitar(lista)) {
        return QString::number(lista->currentIndex());
    }
    return ui::textOf(alvo);
}

void Campos::poeTexto(QStringView nome, const QString &texto)
{
    const QScopedValueRollback escrevendo(escrevendo_, true);
    QWidget *alvo = controle(nome);
    if (auto *opcao = qobject_cast<QRadioButton *>(alvo)) {
        poeOpcao(*opcao, texto != u"0");
    } else if (auto *lista = qobject_cast<QComboBox *>(alvo); semDigitar(lista)) {
        lista->setCurrentIndex(texto.toInt());
    } else {
        EscreveTexto(alvo, texto);
    }
}

void Campos::esvazia(std::span<const QStringView> nomes)
{
    for (const QStringView nome : nomes) {
        poeTexto(nome, {});
    }
}

void Campos::escreve(const std::function<void()> &escrita)
{
    const QScopedValueRollback escrevendo(escrevendo_, true);
    escrita();
}

} // namespace core

#include "shell/frmConfigOrcamento.h"

#include "core/chavesjuntas.h"
#include "core/config.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "ui_frmConfigOrcamento.h"

#include <array>

using namespace Qt::StringLiterals;
using core::ConfigOrcamento;

namespace shell
{
namespace
{

constexpr int maisParcelas = 24;

/// An option array and a key that holds the index of its choice: 0 "Sim", 1 "Não".
struct Pergunta {
    QStringView opcoes;
    QStringView chave;
};

/// In the order of loading and of writing: of two keys of one array the last one wins on the screen.
constexpr std::array perguntas{
    Pergunta{u"opt1", u"P1"}, Pergunta{u"opt2", u"P2"}, Pergunta{u"opt3", u"P3"},
    Pergunta{u"opt4", u"P4"}, Pergunta{u"opt4", u"P5"},
};

constexpr std::array respostas{u"0", u"1"};

QRadioButton *opcao(const QWidget &janela, QStringView opcoes, QStringView indice)
{
    return janela.findChild<QRadioButton *>(opcoes + u'_' + indice);
}

QString parcelas(int quantas)
{
    return runtime::Format(quantas, u"00");
}

} // namespace

frmConfigOrcamento::frmConfigOrcamento()
    : Form(u"frmConfigOrcamento"_s), ui_(std::make_unique<Ui::frmConfigOrcamento>())
{
    ui_->setupUi(this);
    setEscapeUnloads(true);
    for (int quantas = 1; quantas <= maisParcelas; ++quantas) {
        ui_->cboParcelas->addItem(parcelas(quantas));
    }

    onClick(ui_->btnGravar, &frmConfigOrcamento::btnGravar_Click);
    onClick(ui_->btnCancelar, &frmConfigOrcamento::btnCancelar_Click);
}

frmConfigOrcamento::~frmConfigOrcamento() = default;

/// A stored value that no option or entry stands for leaves nothing chosen.
void frmConfigOrcamento::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(core::captionOf(u" - [Configurações de Orçamento]"_s));
    for (const Pergunta &pergunta : perguntas) {
        if (auto *escolhida = opcao(*this, pergunta.opcoes, ConfigOrcamento(pergunta.chave.toString()))) {
            escolhida->setChecked(true);
        }
    }
    ui_->cboParcelas->setCurrentIndex(ui_->cboParcelas->findText(ConfigOrcamento(u"Parcelas"_s)));
    ui_->txtLinha1->setText(ConfigOrcamento(u"Texto1"_s));
    ui_->txtLinha2->setText(ConfigOrcamento(u"Texto2"_s));
}

/// A key for which nothing is chosen keeps its value.
void frmConfigOrcamento::btnGravar_Click()
{
    std::vector<std::pair<QString, QString>> chaves;
    for (const Pergunta &pergunta : perguntas) {
        for (const QStringView resposta : respostas) {
            if (opcao(*this, pergunta.opcoes, resposta)->isChecked()) {
                chaves.emplace_back(pergunta.chave.toString(), resposta.toString());
            }
        }
    }
    if (ui_->cboParcelas->currentIndex() >= 0) {
        chaves.emplace_back(u"Parcelas"_s, ui_->cboParcelas->currentText());
    }
    chaves.emplace_back(u"Texto1"_s, ui_->txtLinha1->text());
    chaves.emplace_back(u"Texto2"_s, ui_->txtLinha2->text());
    core::GravaJuntas(u"Orcamento"_s, chaves);
    ui::MsgBox(u"Gravação efetuada com sucesso"_s, ui::Icon::Information);
    Unload();
}

void frmConfigOrcamento::btnCancelar_Click()
{
    Unload();
}

} // namespace shell

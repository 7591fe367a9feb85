#include "workorders/paginacalculo.h"

#include "ui_paginacalculo.h"

#include "core/janelas.h"
#include "documents/listasitens.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "workorders/calculo.h"

#include <algorithm>
#include <array>

namespace workorders
{

using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

PaginaCalculo::PaginaCalculo(ListasItens &listas) : ui_(std::make_unique<Ui::PaginaCalculo>()), listas_(listas)
{
    ui_->setupUi(this);
    listas_.addTab(this, u"Calculadora"_s);
}

PaginaCalculo::~PaginaCalculo() = default;

void PaginaCalculo::liga(ui::Form &janela)
{
    janela.onClick(ui_->btnCalcular, this, &PaginaCalculo::btnCalcular_Click);
}

void PaginaCalculo::monta()
{
    QWidget *anterior = &listas_.lista(abaMaterial);
    for (QWidget *parada :
         std::initializer_list<QWidget *>{ui_->txtHorasTrabalhadas, ui_->txtCustoPecas, ui_->txtPDespesa,
                                          ui_->txtPTaxaLucro, ui_->txtPISS, ui_->txtPSimples, ui_->btnCalcular}) {
        setTabOrder(anterior, parada);
        anterior = parada;
    }
}

void PaginaCalculo::btnCalcular_Click()
{
    if (!confere()) {
        return;
    }
    const Calculo calculo = Calcula({.valorHora = ui_->lblValorMO->text(),
                                     .horas = ui_->txtHorasTrabalhadas->text(),
                                     .custoPecas = ui_->txtCustoPecas->text(),
                                     .despesas = ui_->txtPDespesa->text(),
                                     .lucro = ui_->txtPTaxaLucro->text(),
                                     .iss = ui_->txtPISS->text(),
                                     .simples = ui_->txtPSimples->text()},
                                    listas_.itens().at(abaPecas));
    ui_->lblTotalMO->setText(calculo.totalMO);
    ui_->txtCustoPecas->setText(calculo.custoPecas);
    ui_->lblDespesasAdmin->setText(calculo.despesas);
    ui_->lblLucro->setText(calculo.lucro);
    ui_->lblISS->setText(calculo.iss);
    ui_->lblSimples->setText(calculo.simples);
    ui_->lblCustoTotal->setText(calculo.custoTotal);
}

bool PaginaCalculo::confere()
{
    struct Taxa {
        QLineEdit *caixa;
        QString mensagem;
    };
    const std::array taxas{
        Taxa{ui_->txtPDespesa, u"Taxa de Despesas Administrativas Inválida"_s},
        Taxa{ui_->txtPTaxaLucro, u"Taxa de Lucro Inválida"_s},
        Taxa{ui_->txtPISS, u"Taxa de ISS Inválida"_s},
        Taxa{ui_->txtPSimples, u"Taxa de Simples Inválida"_s},
    };
    const auto serve = [](const Taxa &taxa) { return ValidaCampo(taxa.caixa, taxa.mensagem, ServeDeTaxa); };
    return std::ranges::all_of(taxas, serve) &&
           ValidaCampo(ui_->txtHorasTrabalhadas, u"Horas Trabalhadas Inválida"_s, ServeDeValor);
}

} // namespace workorders

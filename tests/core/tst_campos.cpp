#include "core/campos.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "support/boxes.h"
#include "support/cadastro.h"

#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;
using namespace core;
using support::click;
using support::key;
using support::text;
using support::type;

namespace
{

QString opcao(const dao::Recordset &linha, int lugar)
{
    return comoEsta(linha, lugar) == u"S" ? u"-1"_s : u"0"_s;
}

std::optional<runtime::Value> letra(const QString &texto, Gravacao /*gravacao*/)
{
    return QString(texto == u"0" ? u"N"_s : u"S"_s);
}

QString entreBarras(const dao::Recordset &linha, int lugar)
{
    return u'|' + comoEsta(linha, lugar) + u'|';
}

constexpr std::array campos{
    Campo{u"lblCodigo", u"Codigo", comoCodigo},
    Campo{u"", u"Entrada", nullptr, hojeNaInclusao},
    Campo{u"txtNome", u"Nome", comoEsta, comoTexto},
    Campo{.controle = u"cboMarca",
          .coluna = u"Marca",
          .mostra = comoEsta,
          .grava = ouNulo,
          .lista = ListaCombo::MarcaModelo},
    Campo{u"txtFone", u"Fone", comoEsta, ouNulo, SoInteiros, TipoMascara::Fone},
    Campo{u"txtValor", u"Valor", comoValor, ouNulo, SoDecimais, TipoMascara::Valor},
    Campo{u"optSim", u"Ativo", opcao, letra},
};

constexpr std::array verificacoes{
    Verificacao{u"txtNome", naoVazio, u"Nome Inválido"},
    Verificacao{u"txtFone", naoVazio, u"Fone Inválido", u"txtValor", true},
    Verificacao{u"txtValor", numericoOuVazio, u"Valor Inválido"},
};

/// A window of every kind of field.
class Janela : public ui::Form
{
public:
    Janela() : Form(u"frmCampos"_s), campos_(*this, campos, verificacoes)
    {
        auto *coluna = new QVBoxLayout(this);
        const auto acrescenta = [&](QWidget *controle, const QString &nome) {
            controle->setObjectName(nome);
            coluna->addWidget(controle);
            return controle;
        };
        acrescenta(new QLabel(this), u"lblCodigo"_s);
        acrescenta(new QLineEdit(this), u"txtNome"_s);
        auto *marca = new QComboBox(this);
        marca->setEditable(true);
        acrescenta(marca, u"cboMarca"_s);
        acrescenta(new QPushButton(this), u"btnMarcaAdd"_s);
        acrescenta(new QPushButton(this), u"btnMarcaRemove"_s);
        acrescenta(new QLineEdit(this), u"txtFone"_s);
        acrescenta(new QLineEdit(this), u"txtValor"_s);
        acrescenta(new QRadioButton(u"Sim"_s, this), u"optSim"_s);
        acrescenta(new QRadioButton(u"Não"_s, this), u"optNao"_s);
        campos_.liga();
    }

    void Form_Load() override
    {
        campos_.limita(u"Fichas"_s);
        campos_.carregaListas();
    }

    Campos campos_;
};

} // namespace

class TstCampos : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void writesTheTextsOfItsControls();
    void aColumnWithoutAControlIsWrittenToo();
    void showsARowAsItIsStored();
    void aColumnThatIsNotThereStaysOrIsEmptied();
    void showsAFieldOtherwise();
    void checksInTheOrderOfTheTable();
    void aCheckOfNewRowsIsNotMadeOfAChange();
    void masksWhatIsTypedAndNotWhatIsWritten();
    void keepsTheListOfACombo();
    void takesWhatTheColumnHolds();
    void emptiesTheFieldsAndGoesToTheFirst();
    void whatStandsInTheFirstFieldIsTypedOver();

private:
    void grava(Gravacao gravacao, qint32 codigo = 0);

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    Janela *janela_ = nullptr;
};

void TstCampos::initTestCase()
{
    ui::Forms::instance().add(u"frmCampos"_s, [] { return new Janela; });
}

void TstCampos::init()
{
    program_ = std::make_unique<support::Program>();
    program_->sql(
        u"CREATE TABLE Fichas (Codigo COUNTER, Entrada DATETIME, Nome TEXT(12), Marca TEXT(30), Fone TEXT(14), "
        "Valor SINGLE, Ativo TEXT(1))"_s);
    boxes_ = std::make_unique<support::Boxes>();
    janela_ = static_cast<Janela *>(support::show(u"frmCampos"_s));
}

void TstCampos::cleanup()
{
    boxes_.reset();
    program_.reset();
}

void TstCampos::grava(Gravacao gravacao, qint32 codigo)
{
    if (gravacao == Gravacao::Inclusao) {
        AcrescentaLinha(u"Fichas"_s, [&](dao::Recordset &linha) { janela_->campos_.grava(linha, gravacao); });
        return;
    }
    auto linha = DBDados->OpenRecordset(u"SELECT * FROM Fichas WHERE Codigo = "_s + QString::number(codigo));
    linha.Edit();
    janela_->campos_.grava(linha, gravacao);
    linha.Update();
}

void TstCampos::writesTheTextsOfItsControls()
{
    type(janela_, u"txtNome"_s, u"maria"_s);
    type(janela_, u"txtValor"_s, u"1234,5"_s);
    click(janela_, u"optNao"_s);
    grava(Gravacao::Inclusao);
    const cadastro::Rows gravado{
        {u"1"_s, u"15/05/2024 00:00:00"_s, u"MARIA"_s, u"<Null>"_s, u"<Null>"_s, u"1234.5"_s, u"N"_s}};
    QCOMPARE(program_->rows(u"SELECT * FROM Fichas"_s), gravado);
}

void TstCampos::aColumnWithoutAControlIsWrittenToo()
{
    type(janela_, u"txtNome"_s, u"maria"_s);
    grava(Gravacao::Inclusao);
    runtime::setClock(runtime::CDate(u"20/05/2024"_s));
    type(janela_, u"txtNome"_s, u"ana"_s);
    grava(Gravacao::Alteracao, 1);
    const cadastro::Rows gravado{{u"15/05/2024 00:00:00"_s, u"ANA"_s}};
    QCOMPARE(program_->rows(u"SELECT Entrada, Nome FROM Fichas"_s), gravado);
}

void TstCampos::showsARowAsItIsStored()
{
    program_->sql(u"INSERT INTO Fichas (Nome, Marca, Fone, Valor, Ativo) VALUES ('Ana', 'GOL', '119', 2.5, 'S')"_s);
    janela_->campos_.mostra(DBDados->OpenRecordset(u"Fichas"_s));
    const cadastro::Fields mostrado{{u"lblCodigo"_s, u"0001"_s},
                                    {u"txtNome"_s, u"Ana"_s},
                                    {u"cboMarca"_s, u"GOL"_s},
                                    {u"txtFone"_s, u"119"_s},
                                    {u"txtValor"_s, u"2,50"_s}};
    QCOMPARE(cadastro::shown(janela_, mostrado), mostrado);
    QVERIFY(support::control<QRadioButton>(janela_, u"optSim"_s)->isChecked());
    program_->sql(u"UPDATE Fichas SET Ativo = 'N'"_s);
    janela_->campos_.mostra(DBDados->OpenRecordset(u"Fichas"_s));
    QVERIFY(support::control<QRadioButton>(janela_, u"optNao"_s)->isChecked());
}

void TstCampos::aColumnThatIsNotThereStaysOrIsEmptied()
{
    program_->sql(u"INSERT INTO Fichas (Nome, Fone) VALUES ('ANA', '119')"_s);
    type(janela_, u"txtFone"_s, u"22"_s, false);
    const QString digitado = text(janela_, u"txtFone"_s);
    janela_->campos_.mostra(DBDados->OpenRecordset(u"SELECT Nome FROM Fichas"_s));
    QCOMPARE(text(janela_, u"txtNome"_s), u"ANA"_s);
    QCOMPARE(text(janela_, u"txtFone"_s), digitado);
    janela_->campos_.mostra(DBDados->OpenRecordset(u"SELECT Nome FROM Fichas"_s), {}, true);
    QCOMPARE(text(janela_, u"txtNome"_s), u"ANA"_s);
    QCOMPARE(text(janela_, u"txtFone"_s), QString());
}

void TstCampos::showsAFieldOtherwise()
{
    program_->sql(u"INSERT INTO Fichas (Nome, Fone) VALUES ('ANA', '119')"_s);
    constexpr std::array outras{OutraMostra{u"txtNome", entreBarras}, OutraMostra{u"txtFone", nullptr}};
    janela_->campos_.mostra(DBDados->OpenRecordset(u"Fichas"_s), outras);
    QCOMPARE(text(janela_, u"txtNome"_s), u"|ANA|"_s);
    QCOMPARE(text(janela_, u"txtFone"_s), QString());
}

void TstCampos::checksInTheOrderOfTheTable()
{
    type(janela_, u"txtValor"_s, u"1,2,3"_s);
    boxes_->exclamation(u"Nome Inválido"_s);
    QVERIFY(!janela_->campos_.confere(Gravacao::Inclusao));
    QCOMPARE(cadastro::focusOf(janela_), u"txtNome"_s);

    type(janela_, u"txtNome"_s, u"ana"_s);
    boxes_->exclamation(u"Fone Inválido"_s);
    QVERIFY(!janela_->campos_.confere(Gravacao::Inclusao));
    QCOMPARE(cadastro::focusOf(janela_), u"txtValor"_s); // the check names it

    type(janela_, u"txtFone"_s, u"119"_s);
    boxes_->exclamation(u"Valor Inválido"_s);
    QVERIFY(!janela_->campos_.confere(Gravacao::Inclusao));

    type(janela_, u"txtValor"_s, u"1"_s);
    QVERIFY(janela_->campos_.confere(Gravacao::Inclusao));
}

void TstCampos::aCheckOfNewRowsIsNotMadeOfAChange()
{
    type(janela_, u"txtNome"_s, u"ana"_s);
    QVERIFY(janela_->campos_.confere(Gravacao::Alteracao));
}

void TstCampos::masksWhatIsTypedAndNotWhatIsWritten()
{
    type(janela_, u"txtFone"_s, u"1155551234"_s);
    QCOMPARE(text(janela_, u"txtFone"_s), u"(11) 5555-1234"_s);
    type(janela_, u"txtValor"_s, u"1234"_s);
    QCOMPARE(text(janela_, u"txtValor"_s), u"1.234,00"_s);
    janela_->campos_.poeTexto(u"txtFone", u"119"_s);
    QCOMPARE(text(janela_, u"txtFone"_s), u"119"_s);
    janela_->campos_.escreve([this] { ui::setTextOf(support::controlOf(janela_, u"txtFone"_s), u"226"_s); });
    QCOMPARE(text(janela_, u"txtFone"_s), u"226"_s);
}

void TstCampos::keepsTheListOfACombo()
{
    type(janela_, u"cboMarca"_s, u"gol"_s);
    click(janela_, u"btnMarcaAdd"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM Combos"_s), (cadastro::Rows{{u"1"_s, u"GOL"_s}}));
    AutoCompletar = true;
    key(janela_, u"cboMarca"_s, Qt::Key_Delete);
    type(janela_, u"cboMarca"_s, u"g"_s);
    QCOMPARE(text(janela_, u"cboMarca"_s), u"GOL"_s);
    janela_->campos_.poeTexto(u"cboMarca", u"G"_s); // a stored text is not completed
    QCOMPARE(text(janela_, u"cboMarca"_s), u"G"_s);
    janela_->campos_.poeTexto(u"cboMarca", u"GOL"_s);
    click(janela_, u"btnMarcaRemove"_s);
    QVERIFY(program_->rows(u"SELECT * FROM Combos"_s).empty());
}

void TstCampos::takesWhatTheColumnHolds()
{
    type(janela_, u"txtNome"_s, u"um nome mais longo"_s);
    QCOMPARE(text(janela_, u"txtNome"_s), u"UM NOME MAIS"_s);
}

void TstCampos::emptiesTheFieldsAndGoesToTheFirst()
{
    type(janela_, u"txtNome"_s, u"ana"_s);
    type(janela_, u"txtValor"_s, u"1"_s);
    janela_->campos_.limpa();
    janela_->campos_.foca();
    QCOMPARE(text(janela_, u"txtNome"_s), QString());
    QCOMPARE(text(janela_, u"txtValor"_s), QString());
    QCOMPARE(cadastro::focusOf(janela_), u"txtNome"_s); // a label does not take it
}

void TstCampos::whatStandsInTheFirstFieldIsTypedOver()
{
    janela_->campos_.poeTexto(u"txtNome", u"ANA"_s);
    janela_->campos_.foca();
    QTest::sendKeyEvent(QTest::Click, janela_->window()->windowHandle(), Qt::Key_B, u"b"_s, Qt::NoModifier);
    QCOMPARE(text(janela_, u"txtNome"_s), u"B"_s);
}

TARVELO_TEST_MAIN(TstCampos)
#include "tst_campos.moc"

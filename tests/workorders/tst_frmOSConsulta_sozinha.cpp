#include "tests/workorders/consulta.h"

#include "core/devolucao.h"
#include "workorders/frmOSAbre.h"
#include "workorders/frmOSConsulta.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace consulta;
using support::control;

/// The query where the windows that it opens do not exist, but for the one that opens orders.
class tst_frmOSConsulta_sozinha : public Case
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { start(); }
    void cleanup() { finish(); }

    void buttonsOfWindowsThatDoNotExistAreDisabled();
};

void tst_frmOSConsulta_sozinha::initTestCase()
{
    core::RegistraJanela(query, [] { return new workorders::frmOSConsulta; });
    core::RegistraJanela(u"frmOSAbre"_s, [] { return new workorders::frmOSAbre; });
}

void tst_frmOSConsulta_sozinha::buttonsOfWindowsThatDoNotExistAreDisabled()
{
    open();
    QVERIFY(!ui::Forms::instance().exists(u"frmOSAltera"_s));
    QVERIFY(!control<QWidget>(window_, u"btnOSAltera"_s)->isEnabled());
    QVERIFY(!control<QWidget>(window_, u"btnPagtoInfo"_s)->isEnabled());
    QVERIFY(control<QWidget>(window_, u"btnOSAdd"_s)->isEnabled());
}

TARVELO_TEST_MAIN(tst_frmOSConsulta_sozinha)
#include "tst_frmOSConsulta_sozinha.moc"

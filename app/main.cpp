#include "estimates/estimates.h"
#include "finance/finance.h"
#include "platform/files/files.h"
#include "platform/ui/application.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "workorders/workorders.h"

int main(int argc, char **argv)
{
    files::keepToGroup();
    const ui::Application application(argc, argv);
    shell::registerForms();
    registers::registerForms();
    workorders::registerForms();
    reports::registerForms();
    stock::registerForms();
    estimates::registerForms();
    finance::registerForms();
    shell::liga();
    shell::comeca();
    const int result = ui::Application::exec();
    shell::desmonta();
    return result;
}

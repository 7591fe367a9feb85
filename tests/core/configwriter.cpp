// Writes settings as the program does, for the test that kills it or takes its disk away.
//   configwriter FILE forever   makes the file's keys, then writes numbers, and prints each that is written
//   configwriter FILE once      writes every kind of setting once, without the start's own writes
#include "core/chavesjuntas.h"
#include "core/config.h"
#include "core/modulo.h"

#include <csignal>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

/// A number alone, and one that stands in three keys at once.
void write(int number)
{
    const QString text = QString::number(number);
    core::GravaINI(u"Config"_s, u"Telefone"_s, text, true);
    core::GravaJuntas(u"Orcamento"_s, {{u"P4"_s, text}, {u"P5"_s, text}, {u"Texto1"_s, text}});
}

} // namespace

int main(int count, char **arguments)
{
    if (count != 3) {
        return 2;
    }
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    core::ArquivoINI = QString::fromLocal8Bit(arguments[1]);
    if (QString::fromLocal8Bit(arguments[2]) == u"once") {
        write(1);
        core::GravaINI(u"Config"_s, u"FileDB"_s, u"C:\\DADOS.MDB"_s, false);
        return 0;
    }
    core::CarregaConfig();
    for (int number = 1;; ++number) {
        write(number);
        std::printf("%d\n", number);
        std::fflush(stdout);
    }
}

#include "shell/instancia.h"

#include "core/modulo.h"
#include "platform/files/filelock.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace shell
{
namespace
{

std::unique_ptr<files::FileLock> trava;

} // namespace

bool OutraInstancia()
{
    auto nova = std::make_unique<files::FileLock>(core::App::Path() + u"/tarvelo.lock"_s);
    if (nova->take() == files::FileLock::Result::Busy) {
        return true;
    }
    trava = std::move(nova);
    return false;
}

void liberaInstancia()
{
    trava.reset();
}

} // namespace shell

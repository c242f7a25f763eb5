// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/calendario.h"

#include <unicode/uloc.h>

#include <cstdlib>
#include <string>

namespace plataforma {

std::string localeDeFechas()
{
    // POSIX order for the time category: LC_ALL, LC_TIME, LANG. ICU's own
    // default follows the messages category instead.
    const char* valor = nullptr;
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"})
        if (const char* v = std::getenv(variable); v != nullptr && *v != '\0') {
            valor = v;
            break;
        }
    // The codeset and the modifier say nothing of dates: "es_ES.UTF-8@euro" is es_ES.
    std::string v = valor == nullptr ? "C" : valor;
    v = v.substr(0, v.find_first_of(".@"));
    // The POSIX locale is ICU's en_US_POSIX.
    if (v == "C" || v == "POSIX" || v.empty())
        return "en_US_POSIX";
    char id[ULOC_FULLNAME_CAPACITY];
    UErrorCode e = U_ZERO_ERROR;
    const int32_t n = uloc_canonicalize(v.c_str(), id, sizeof id, &e);
    if (U_FAILURE(e) || n <= 0 || n >= int32_t(sizeof id))
        return "en_US_POSIX";
    return std::string(id, size_t(n));
}

} // namespace plataforma

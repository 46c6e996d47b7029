#include "PlayerLibraries.h"

#include <mpv/client.h>
#include <vlc/vlc.h>

#include <clocale>
#include <cstring>
#include <memory>

using namespace Qt::StringLiterals;

QString mpvVersion()
{
    static const QString version = [] {
        // A handle that is never initialized starts no playback and opens no output; the
        // version is a property of the library it answers at once.
        // libmpv refuses to start (and says so on standard error) unless numbers are read in
        // the C locale; the program sets it, a test may not have.
        const char *numeric = std::setlocale(LC_NUMERIC, nullptr);
        const bool cLocale = numeric && std::strcmp(numeric, "C") == 0;
        const std::unique_ptr<mpv_handle, decltype(&mpv_terminate_destroy)> mpv(
            cLocale ? mpv_create() : nullptr, &mpv_terminate_destroy);
        if (mpv) {
            if (char *text = mpv_get_property_string(mpv.get(), "mpv-version")) {
                const QString name = QString::fromUtf8(text);
                mpv_free(text);
                return name;
            }
        }
        const unsigned long api = mpv_client_api_version();
        return u"client API %1.%2"_s.arg(api >> 16).arg(api & 0xffff);
    }();
    return version;
}

QString vlcVersion()
{
    return QString::fromUtf8(libvlc_get_version());
}

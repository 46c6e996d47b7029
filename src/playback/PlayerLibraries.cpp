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
        // A handle with no video, sound, configuration or scripts: it opens nothing and only
        // answers the version, which mpv gives once the handle is initialized.
        // libmpv refuses to start (and says so on standard error) unless numbers are read in
        // the C locale; the program sets it, a test may not have.
        const char *numeric = std::setlocale(LC_NUMERIC, nullptr);
        const bool cLocale = numeric && std::strcmp(numeric, "C") == 0;
        std::unique_ptr<mpv_handle, decltype(&mpv_terminate_destroy)> mpv(cLocale ? mpv_create() : nullptr,
                                                                          &mpv_terminate_destroy);
        if (mpv) {
            static const char *const options[][2] = {{"config", "no"},       {"vo", "null"},
                                                     {"ao", "null"},         {"terminal", "no"},
                                                     {"load-scripts", "no"}, {"idle", "yes"}};
            for (const auto &option : options)
                mpv_set_option_string(mpv.get(), option[0], option[1]);
            if (mpv_initialize(mpv.get()) < 0)
                mpv.reset();
        }
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

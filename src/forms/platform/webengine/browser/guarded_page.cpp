#include "forms/platform/webengine/browser/guarded_page.h"

#include "forms/platform/webengine/browser/typed_address.h"
#include "forms/platform/webengine/browser/web_only_guard.h"

#include <QAuthenticator>
#include <QColor>
#include <QWebEngineCertificateError>
#include <QWebEngineClientCertificateSelection>
#include <QWebEngineDownloadRequest>
#include <QWebEngineFileSystemAccessRequest>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineProfile>
#include <QWebEngineQuotaRequest>
#include <QWebEngineRegisterProtocolHandlerRequest>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>

#include <utility>

namespace quillora::forms::webengine {

namespace {

/// Runs in every frame before its own scripts, and out of their reach.
QWebEngineScript guardingScript(const QString& name, const QString& source)
{
    QWebEngineScript script;
    script.setName(name);
    script.setSourceCode(source);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setRunsOnSubFrames(true);
    return script;
}

/// What is dragged out of a page would be dropped by an other process than the one whose window is pressed.
QWebEngineScript noDragging()
{
    return guardingScript(
        QStringLiteral("no dragging"),
        QStringLiteral("window.addEventListener('dragstart', event => event.preventDefault(), true);"));
}

/// A page that asks whether it may be left would have its answer unseen, which is no, and so hold the
/// presenter for ever: none is asked.
QWebEngineScript noStaying()
{
    return guardingScript(QStringLiteral("no staying"),
                          QStringLiteral("window.addEventListener('beforeunload',"
                                         " event => event.stopImmediatePropagation(), true);"));
}

struct Setting {
    QWebEngineSettings::WebAttribute attribute;
    bool value;
};

constexpr Setting kSettings[] = {
    {QWebEngineSettings::LocalContentCanAccessRemoteUrls, false},
    {QWebEngineSettings::LocalContentCanAccessFileUrls, false},
    {QWebEngineSettings::JavascriptCanAccessClipboard, false},
    {QWebEngineSettings::ScreenCaptureEnabled, false},
    {QWebEngineSettings::PluginsEnabled, false},
    {QWebEngineSettings::DnsPrefetchEnabled, false},
    {QWebEngineSettings::WebRTCPublicInterfacesOnly, true},
    // The page's window is granted or refused by the recorder, which has to be asked.
    {QWebEngineSettings::JavascriptCanOpenWindows, true},
    {QWebEngineSettings::FullScreenSupportEnabled, true},
    // The presenter has pressed the button already: that of the panel.
    {QWebEngineSettings::PlaybackRequiresUserGesture, false},
    {QWebEngineSettings::FocusOnNavigationEnabled, false},
};

} // namespace

void restrict(QWebEngineProfile& profile)
{
    profile.setUrlRequestInterceptor(new WebOnlyGuard(&profile));
    profile.scripts()->insert(noDragging());
    profile.scripts()->insert(noStaying());
    for (const Setting& setting : kSettings)
        profile.settings()->setAttribute(setting.attribute, setting.value);
    profile.settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
    QObject::connect(&profile, &QWebEngineProfile::downloadRequested,
                     [](QWebEngineDownloadRequest* download) { download->cancel(); });
}

GuardedPage::GuardedPage(QWebEngineProfile& profile, Owner owner, QObject* parent)
    : QWebEnginePage(&profile, parent), m_owner(std::move(owner))
{
    setBackgroundColor(Qt::white);
    refuseRequests();
}

void GuardedPage::refuseRequests()
{
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
    connect(this, &QWebEnginePage::fullScreenRequested, this,
            [](QWebEngineFullScreenRequest request) { request.accept(); });
    connect(this, &QWebEnginePage::certificateError, this,
            [](QWebEngineCertificateError error) { error.rejectCertificate(); });
    connect(this, &QWebEnginePage::selectClientCertificate, this,
            [](QWebEngineClientCertificateSelection selection) { selection.selectNone(); });
    connect(this, &QWebEnginePage::registerProtocolHandlerRequested, this,
            [](QWebEngineRegisterProtocolHandlerRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::fileSystemAccessRequested, this,
            [](QWebEngineFileSystemAccessRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::quotaRequested, this,
            [](QWebEngineQuotaRequest request) { request.reject(); });
    // A name and a password typed on the stage would be in the recording: the page says itself that it is
    // closed.
    connect(this, &QWebEnginePage::authenticationRequired, this,
            [](const QUrl&, QAuthenticator* authenticator) { *authenticator = QAuthenticator(); });
    connect(this, &QWebEnginePage::proxyAuthenticationRequired, this,
            [](const QUrl&, QAuthenticator* authenticator, const QString&) {
                *authenticator = QAuthenticator();
            });
}

bool GuardedPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool)
{
    return isOfTheWeb(url) || url.scheme() == QStringLiteral("about");
}

QWebEnginePage* GuardedPage::createWindow(WebWindowType) { return m_owner.openWindow(); }

QStringList GuardedPage::chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) { return {}; }

void GuardedPage::javaScriptAlert(const QUrl& securityOrigin, const QString& text)
{
    if (!m_owner.isSilent())
        QWebEnginePage::javaScriptAlert(securityOrigin, text);
}

bool GuardedPage::javaScriptConfirm(const QUrl& securityOrigin, const QString& text)
{
    return !m_owner.isSilent() && QWebEnginePage::javaScriptConfirm(securityOrigin, text);
}

bool GuardedPage::javaScriptPrompt(const QUrl& securityOrigin, const QString& text, const QString& proposed,
                                   QString* answer)
{
    return !m_owner.isSilent() && QWebEnginePage::javaScriptPrompt(securityOrigin, text, proposed, answer);
}

void GuardedPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&)
{}

} // namespace quillora::forms::webengine

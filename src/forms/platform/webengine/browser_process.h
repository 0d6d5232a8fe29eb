#pragma once

#include "forms/page_host.h"
#include "forms/platform/webengine/browser_messages.h"
#include "forms/platform/webengine/shared_picture.h"

#include <filesystem>
#include <memory>

class QProcess;

namespace quillora::forms::webengine {

/// A page host in a process of its own, which shows nothing on the screen but the boxes and menus of its
/// page: it paints the page into memory that is shared with it. What it says is checked before it is
/// believed, since it reads strangers' pages. It ends with this object, and when this process ends in any
/// other way.
class BrowserProcess : public PageHost {
    Q_OBJECT

  public:
    /// @p program is the browser's executable.
    explicit BrowserProcess(std::filesystem::path program);
    ~BrowserProcess() override;

    void start() override;
    void navigate(const QString& address) override;
    void goBack() override;
    void goForward() override;
    void stop() override;
    void reload() override;
    void setSilent(bool silent) override;
    void zoom(quint32 request, const QString& zoom) override;
    void resize(QSize size) override;
    void setShown(bool shown) override;
    void forward(const QEvent& event) override;
    void answerNewWindow(quint32 question, bool cancel) override;
    QImage takePicture() override;

    /// 0 while there is none.
    qint64 processId() const;

  private:
    void launch();
    void send(const QByteArray& message);
    void readReports();
    void handle(const QByteArray& report);
    void end(const QString& why, Return back);
    void dropProcess();

    std::filesystem::path m_program;
    std::unique_ptr<SharedPicture> m_shared{};
    QProcess* m_process = nullptr;
    MessageReader m_reports;
    QSize m_pictureSize{};
};

} // namespace quillora::forms::webengine

// SPDX-License-Identifier: MIT
#include "platform/toolkit/MessageWindow.h"

#include "platform/host/messages/internal/Host_MessageServer.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/toolkit/Watch.h"

#include <optional>
#include <utility>

namespace Toolkits
{

namespace
{

MessageWindow::TMessage MessageOf(const Host::TWindowMessage& message)
{
    // Zeros stand behind the bytes, so that the text ends whatever was sent.
    return {static_cast<const System::WideChar*>(message.data.lpData), message.wParam, message.data.dwData,
            message.folder, message.token};
}

} // namespace

class MessageWindow::CImpl
{
public:
    CImpl(const System::UnicodeString& title, THandler handler)
        : mServer(Host::MessageServer::Open(title, [handler = std::move(handler)](const auto& message) {
              if (!message.token.IsEmpty()) {
                  CurrentToolkit().SetActivationToken(message.token);
              }
              return handler(MessageOf(message));
          }))
    {
        if (mServer != nullptr) {
            mWatch.emplace(mServer->getDescriptor(), [server = mServer.get()] { server->Serve(); });
        }
    }

    bool IsOpen() const noexcept { return mServer != nullptr; }

private:
    std::unique_ptr<Host::MessageServer> mServer;
    std::optional<Watch> mWatch;
};

MessageWindow::MessageWindow(const System::UnicodeString& title, THandler handler)
    : mImpl(std::make_unique<CImpl>(title, std::move(handler)))
{
}

MessageWindow::~MessageWindow() = default;

bool MessageWindow::IsOpen() const noexcept
{
    return mImpl->IsOpen();
}

} // namespace Toolkits

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

/// The text up to the first zero, without a copy.
System::UnicodeString TextOf(System::UnicodeString units)
{
    // Of most texts the last unit is the zero. Blocks are looked through whole, which goes by many units at
    // once.
    constexpr std::size_t block = 64;
    const std::u16string_view view = units.AsView();
    std::size_t begin = 0;
    const auto hasZero = [&view](std::size_t at) {
        unsigned zeros = 0;
        for (std::size_t i = 0; i < block; ++i) {
            zeros |= static_cast<unsigned>(view[at + i] == 0);
        }
        return zeros != 0;
    };
    while (view.size() - begin >= block && !hasZero(begin)) {
        begin += block;
    }
    const std::size_t zero = view.find(u'\0', begin);
    if (zero != std::u16string_view::npos) {
        units.SetLength(static_cast<int>(zero));
    }
    return units;
}

MessageWindow::TMessage MessageOf(Host::TWindowMessage& message)
{
    return {TextOf(std::move(message.units)), message.wParam, message.data.dwData, message.folder,
            message.token};
}

} // namespace

class MessageWindow::CImpl
{
public:
    CImpl(const System::UnicodeString& title, THandler handler)
        : mServer(Host::MessageServer::Open(title, [handler = std::move(handler)](auto& message) {
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

#include "ServerWait.h"

#include <optional>

#include "Errors.h"
#include "Progress.h"
#include "Step.h"

namespace widgets {
namespace {

class ServerWait : public data::Patience {
public:
    ServerWait() {
        if (!m_within)
            m_own.emplace(QStringLiteral("در انتظار پاسخ سرور ..."), 0);
    }
    bool goOn() override {
        if (!Step::mayPause())
            return true;
        try {
            Progress::newest()->look();
        } catch (const data::SilentAbort&) {
            return false;
        }
        return true;
    }
    bool isSeen() const override { return m_within; }

private:
    const bool m_within = Progress::any();
    std::optional<Progress> m_own;
};

}  // namespace

std::unique_ptr<data::Patience> waitForServer() {
    return std::make_unique<ServerWait>();
}

}  // namespace widgets

#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

namespace tamarind::tests {

/// Gives up the superuser's rights for the length of a scope, so that access rights count.
class Unprivileged {
public:
    Unprivileged() {
        if (user_ == 0) {
            EXPECT_EQ(seteuid(kNobody), 0);
        }
    }
    ~Unprivileged() {
        if (user_ == 0) {
            EXPECT_EQ(seteuid(user_), 0);
        }
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    uid_t user_ = geteuid();
};

} // namespace tamarind::tests

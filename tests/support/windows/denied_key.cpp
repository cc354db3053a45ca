#include "support/denied_key.h"

#include <gtest/gtest.h>
#include <vector>
#include <windows.h>

namespace nrd::test {

struct denied_key::restorer {
    HKEY key = nullptr;
    std::vector<BYTE> before;
};

namespace {

constexpr std::u32string_view root = U"HKEY_LOCAL_MACHINE\\";

PSECURITY_DESCRIPTOR descriptor_in(std::vector<BYTE>& bytes)
{
    return bytes.data();
}

} // namespace

denied_key::denied_key(const misc::text32& path) : restorer_(new restorer)
{
    const std::u16string subkey = misc::to_utf16(path.substr(root.size()));
    EXPECT_TRUE(path.starts_with(root));
    // What is open stays open, so the rights can be given back.
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, reinterpret_cast<const wchar_t*>(subkey.c_str()), 0,
                            READ_CONTROL | WRITE_DAC | KEY_WOW64_64KEY, &restorer_->key),
              ERROR_SUCCESS);
    DWORD size = 0;
    RegGetKeySecurity(restorer_->key, DACL_SECURITY_INFORMATION, nullptr, &size);
    restorer_->before.resize(size);
    EXPECT_EQ(RegGetKeySecurity(restorer_->key, DACL_SECURITY_INFORMATION,
                                descriptor_in(restorer_->before), &size),
              ERROR_SUCCESS);
    SECURITY_DESCRIPTOR nobody;
    ACL empty;
    InitializeSecurityDescriptor(&nobody, SECURITY_DESCRIPTOR_REVISION);
    InitializeAcl(&empty, sizeof(empty), ACL_REVISION);
    SetSecurityDescriptorDacl(&nobody, TRUE, &empty, FALSE);
    EXPECT_EQ(RegSetKeySecurity(restorer_->key, DACL_SECURITY_INFORMATION, &nobody), ERROR_SUCCESS);
}

denied_key::~denied_key()
{
    EXPECT_EQ(RegSetKeySecurity(restorer_->key, DACL_SECURITY_INFORMATION,
                                descriptor_in(restorer_->before)),
              ERROR_SUCCESS);
    RegCloseKey(restorer_->key);
}

} // namespace nrd::test

#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

// A fixture that gives each test its own empty temporary folder, removed afterwards.
class TempDirTest : public testing::Test
{
protected:
    void SetUp() override
    {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        m_dir = std::filesystem::temp_directory_path() /
                ("tervola_xml_" + std::string(info->test_suite_name()) + "_" + info->name());
        std::filesystem::remove_all(m_dir);
        std::filesystem::create_directories(m_dir);
    }
    void TearDown() override { std::filesystem::remove_all(m_dir); }

    std::string PathOf(const std::string& name) const { return (m_dir / name).string(); }

    std::filesystem::path m_dir;
};

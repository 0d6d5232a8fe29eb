"""tools/check_layers, fed with small made-up trees."""
import os
import subprocess
import tempfile
import unittest

CHECK_LAYERS = os.path.join(os.path.dirname(__file__), "..", "..", "tools", "check_layers")

TABLE = """
| Level | Folder | What lives there | Headers from outside |
|---|---|---|---|
| 3 | `src/app/` | the root | Qt |
| 2 | `src/forms/` | windows | Qt |
| 1 | `src/session/` | logic | none |
| 1 | `src/drawing/` | logic | none |
| 0 | `src/base/` | ground | none |
"""


class CheckLayersTest(unittest.TestCase):
    def setUp(self):
        self.tree = tempfile.TemporaryDirectory(prefix="check layers ")
        self.addCleanup(self.tree.cleanup)
        self.write("ARCHITECTURE.md", TABLE)
        for folder in ("app", "forms", "session", "drawing", "base"):
            self.write(f"src/{folder}/thing.h", "#pragma once\n#include <string>\n")
        self.write("src/session/platform/zip/writer.h", "#pragma once\n#include <zip.h>\n")
        self.write("tests/support/fake.h", "#pragma once\n")

    def write(self, path, text):
        path = os.path.join(self.tree.name, path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def run_check(self):
        done = subprocess.run([CHECK_LAYERS, self.tree.name], capture_output=True, text=True, timeout=60)
        *faults, summary = done.stdout.splitlines()
        self.assertEqual(done.returncode, 1 if faults else 0, done.stdout + done.stderr)
        self.assertTrue(summary.endswith(f" {len(faults)} faults"), summary)
        return faults

    def assert_passes(self, path, text):
        self.write(path, text)
        self.assertEqual(self.run_check(), [])

    def assert_faulty(self, path, text, line, words):
        self.write(path, text)
        faults = self.run_check()
        self.assertEqual(len(faults), 1, faults)
        self.assertTrue(faults[0].startswith(f"{path}:{line}: "), faults[0])
        self.assertIn(words, faults[0])

    def test_a_tree_that_keeps_the_rules_passes(self):
        self.assertEqual(self.run_check(), [])

    def test_a_lower_level_may_be_included(self):
        self.assert_passes("src/session/a.cpp", '#include "base/thing.h"\n#include <vector>\n')

    def test_an_upward_include_is_a_fault(self):
        self.assert_faulty("src/base/a.cpp", '#include <map>\n\n#include "session/thing.h"\n', 3, "upward")

    def test_an_upward_include_in_angle_brackets_is_a_fault(self):
        self.assert_faulty("src/base/a.cpp", "#include <session/thing.h>\n", 1, "upward")

    def test_an_upward_include_by_a_relative_path_is_a_fault(self):
        self.assert_faulty("src/base/a.cpp", '#include "../session/thing.h"\n', 1, "upward")

    def test_an_upward_include_in_a_test_is_a_fault_too(self):
        self.assert_faulty("src/base/a_test.cpp", '#include "session/thing.h"\n', 1, "upward")

    def test_an_include_across_one_level_is_a_fault(self):
        self.assert_faulty("src/drawing/a.cpp", '#include "session/thing.h"\n', 1, "across level 1")

    def test_a_file_beside_may_be_included_by_its_bare_name(self):
        self.assert_passes("src/session/a.cpp", '#include "thing.h"\n')

    def test_a_system_header_in_logic_is_a_fault(self):
        self.assert_faulty("src/session/a.cpp", "#include <unistd.h>\n", 1, "standard library only")

    def test_a_c_header_in_logic_is_a_fault_where_cplusplus_has_its_own(self):
        self.assert_faulty("src/session/a.cpp", "#include <math.h>\n", 1, "standard library only")

    def test_the_vector_instructions_of_the_compiler_are_allowed(self):
        self.assert_passes("src/session/a.cpp", "#include <emmintrin.h>\n")

    def test_a_library_header_in_logic_is_a_fault(self):
        self.assert_faulty("src/session/a.cpp", '#include "libavcodec/avcodec.h"\n', 1, "standard library only")

    def test_qt_in_logic_is_a_fault(self):
        self.assert_faulty("src/session/a.cpp", "#include <QString>\n", 1, "standard library only")

    def test_qt_is_allowed_in_forms_and_in_app(self):
        self.write("src/forms/a.cpp", '#include <QtWidgets/QWidget>\n#include <QLabel>\n#include "a.moc"\n')
        self.assert_passes("src/app/main.cpp", "#include <QApplication>\n")

    def test_another_library_in_forms_is_a_fault(self):
        self.assert_faulty("src/forms/a.cpp", "#include <xcb/xcb.h>\n", 1, "and Qt only")

    def test_any_library_is_allowed_in_an_adapter(self):
        self.assert_passes("src/session/platform/zip/a.cpp", '#include "session/thing.h"\n#include <zip.h>\n')

    def test_an_adapter_keeps_to_the_levels(self):
        self.assert_faulty("src/session/platform/zip/a.cpp", '#include "forms/thing.h"\n', 1, "upward")

    def test_app_may_include_an_adapter(self):
        self.assert_passes("src/app/main.cpp", '#include "session/platform/zip/writer.h"\n')

    def test_logic_that_includes_its_own_adapter_is_a_fault(self):
        self.assert_faulty("src/session/a.cpp", '#include "session/platform/zip/writer.h"\n', 1, "adapter")

    def test_a_form_that_includes_an_adapter_is_a_fault(self):
        self.assert_faulty("src/forms/a.cpp", '#include "session/platform/zip/writer.h"\n', 1, "adapter")

    def test_adapters_of_one_folder_may_share_code(self):
        self.assert_passes("src/session/platform/posix/a.cpp", '#include "session/platform/zip/writer.h"\n')

    def test_adapters_to_one_library_may_share_code_down_the_levels(self):
        self.write("src/base/platform/zip/connection.h", "#pragma once\n")
        self.assert_passes("src/session/platform/zip/a.cpp", '#include "base/platform/zip/connection.h"\n')

    def test_adapters_to_one_library_keep_to_the_levels(self):
        self.assert_faulty("src/drawing/platform/zip/a.cpp", '#include "session/platform/zip/writer.h"\n', 1, "across")

    def test_an_adapter_that_uses_one_to_another_library_is_a_fault(self):
        self.write("src/base/platform/posix/file.h", "#pragma once\n")
        self.assert_faulty("src/session/platform/zip/a.cpp", '#include "base/platform/posix/file.h"\n', 1, "adapter")

    def test_a_header_right_under_platform_counts_as_an_adapter(self):
        self.write("src/session/platform/shared.h", "#include <unistd.h>\n")
        self.assert_faulty("src/session/a.cpp", '#include "session/platform/shared.h"\n', 1, "adapter")

    def test_googletest_is_allowed_in_a_test_only(self):
        self.assert_passes("src/session/a_test.cpp", '#include <gtest/gtest.h>\n#include "tests/support/fake.h"\n')
        self.assert_faulty("src/session/a.cpp", "#include <gtest/gtest.h>\n", 1, "standard library only")

    def test_a_fake_in_the_product_is_a_fault(self):
        self.assert_faulty("src/session/a.cpp", '#include "tests/support/fake.h"\n', 1, "outside src/")

    def test_an_include_by_macro_is_a_fault(self):
        self.assert_faulty("src/session/a.cpp", '#define H "base/thing.h"\n#include H\n', 2, "computed")

    def test_odd_spacing_hides_nothing(self):
        self.assert_faulty("src/session/a.cpp", '  #  include\t<unistd.h>  // for the price of tea\n', 1, "unistd.h")

    def test_comments_and_strings_are_not_read(self):
        self.assert_passes("src/session/a.cpp", "\n".join((
            "// #include <unistd.h>", "/*", "#include <unistd.h>", "*/", "const char quote = '\"';",
            'const char* raw = R"x(', "#include <unistd.h>", ')x";', '')))

    def test_a_comment_mark_inside_a_string_hides_nothing(self):
        self.assert_faulty("src/session/a.cpp", 'auto s = "/*";\n#include <unistd.h>\n/**/\n', 2, "unistd.h")

    def test_a_folder_without_a_level_is_a_fault(self):
        self.write("src/extra/thing.h", "")
        self.assertEqual(self.run_check(), ["src/extra/: not in the table of levels"])

    def test_a_level_without_a_folder_is_a_fault(self):
        self.write("ARCHITECTURE.md", TABLE + "| 1 | `src/audio/` | sound | none |\n")
        self.assertEqual(self.run_check(), ["ARCHITECTURE.md: src/audio/ has a level but does not exist"])

    def test_no_table_is_a_fault(self):
        self.write("ARCHITECTURE.md", "# Architecture\n")
        self.assertEqual(len(self.run_check()), 1)


if __name__ == "__main__":
    unittest.main()

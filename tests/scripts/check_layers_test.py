"""The check of the layers' order over a small tree: what it lets through and what it stops."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "check-layers.py"


def run(files):
    with tempfile.TemporaryDirectory() as root:
        for name, text in files.items():
            path = pathlib.Path(root, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)
        done = subprocess.run([sys.executable, str(SCRIPT), root], capture_output=True, text=True)
        return done.returncode, done.stdout


# Each include goes to its own layer or one below; a local header, a generated one, a system one
# and a commented-out include are no concern of the check.
DOWNWARD = {
    "src/app.h": '#include "data/settings.h"\n#include "platform/ui.h"\n',
    "src/station_windows.h": "",
    "src/data/settings.h": "",
    "src/data/names_file.cpp": '#include "app.h"\n#include "station_windows.h"\n',
    "src/platform/ui.h": "",
    "src/platform/qt/qt_text.h": '#include "platform/ui.h"\n#include <QString>\n',
    "src/admin/passwords.h": "",
    "src/reports/log_menu.h": "",
    "src/reports/log_menu.cpp": '#include "log_menu.h"\n#include "admin/passwords.h"\n#include "build_info.h"\n',
    "src/automation/auto_frm.h": '// #include "station/name_form.h" was here\n',
    "src/station/name_form.cpp": '#include "automation/auto_frm.h"\n#  include "reports/log_menu.h"\n',
}


class LayerCheck(unittest.TestCase):
    def test_includes_down_the_layers_pass(self):
        self.assertEqual(run(DOWNWARD), (0, ""))

    def test_each_include_up_the_layers_is_reported_at_its_line(self):
        files = dict(DOWNWARD)
        files["src/platform/qt/qt_text.h"] += '#include "data/settings.h"\n'
        # The process-wide state beside the folders is included by data, so it counts as data.
        files["src/app.h"] += '#include "station/name_form.h"\n'
        files["src/admin/passwords.h"] = '#include "reports/log_menu.h"\n'
        code, out = run(files)
        self.assertEqual(code, 1)
        self.assertEqual([line.split(" ")[0] for line in out.splitlines()[:-1]],
                         ["src/admin/passwords.h:1:", "src/app.h:3:", "src/platform/qt/qt_text.h:3:"])


if __name__ == "__main__":
    unittest.main()

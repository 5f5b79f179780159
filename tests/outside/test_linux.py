"""A user's actions on Linux: keys, clicks and drops, checked on the screen and on the disk."""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
import urllib.parse

import display
import drag_source
import reader
import samples
from display import press, write
from program import TITLE, Program
from wait import until, until_equal

_SIMPLE_INPUT_METHOD = {"GTK_IM_MODULE": "gtk-im-context-simple"}
_HIRAGANA_A = ("ctrl+shift+u", "3", "0", "4", "2")
_TITLES_QUESTION = "チェックアイテムのリネーム名を、それぞれのタイトルに変更します"
_APPLY_QUESTION = "チェックアイテムのリネーム名をファイルに適応します"
_INITIALISATION_ERROR = (
    "設定ファイルが壊れている可能性があります\n"
    "再度起動してください\n"
    "それでも初期化エラーが出る場合はヘルプを参照してください"
)


def answer(caption, text, key="Return"):
    """Waits for the dialog, presses a key in it, and waits for it to close."""
    buttons = reader.wait_for_dialog(text)
    until_equal(display.active_title, caption, "the dialog in front")
    press(key)
    until(lambda: text not in str(reader.dialog()), f"“{text}” closed")
    return buttons


class Linux(unittest.TestCase):
    built = None  # the folder of the built program

    def setUp(self):
        self.program = Program(self.built)
        self.addCleanup(self.program.close)
        self.files = samples.fill(self.program.folder / "曲 と 音")

    def names(self):
        return sorted(os.listdir(self.files))

    def load(self, **environment):
        """Starts the program with the sample folder."""
        process = self.program.start_and_show(self.files, **environment)
        reader.wait_for_names(["01", "02", "曲 03"])
        until(reader.list_has_focus, "the list focused")
        return process

    def focus_rename_box(self):
        press("alt+n")
        until(reader.rename_box_has_focus, "the rename box focused")
        press("ctrl+a")

    def other_window(self, *paths):
        """Opens another program's window, which takes the focus."""
        script = pathlib.Path(drag_source.__file__)
        process = subprocess.Popen([sys.executable, "-B", script, *paths], stdin=subprocess.DEVNULL)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        until_equal(display.active_title, drag_source.TITLE, "the other window in front")

    def test_bars_and_headings_can_be_read(self):
        self.load()
        status = "手動適応モード / 選択： 01.mid / 未適応： 0 / チェック数： 3 / アイテム数：  3"
        until_equal(lambda: reader.names_of(reader.Atspi.Role.STATUS_BAR), [status], "the status bar read")
        headings = reader.names_of(reader.Atspi.Role.TABLE_COLUMN_HEADER)
        self.assertEqual(headings, ["チェック", "アイコン", *reader.COLUMNS])
        arrows = [name for name in reader.names_of(reader.Atspi.Role.TOGGLE_BUTTON) if name.endswith("のメニュー")]
        self.assertEqual(len(arrows), 4)

    def test_starts_with_a_folder(self):
        self.load()
        rows = reader.rows()
        self.assertEqual([row.title for row in rows], ["さくら", "Greensleeves", "荒城の月"])
        self.assertEqual([row[3] for row in rows], ["", "", "滝廉太郎"])
        self.assertEqual([row[4] for row in rows], ["MIDI", "MIDI", "MP3"])
        self.assertEqual([row.location for row in rows], [str(self.files / name) for name in self.names()])
        self.assertEqual([row.checked for row in rows], [True, True, True])
        self.assertEqual(reader.selected(), [0])
        reader.wait_for_box("リネーム名", "01")
        reader.wait_for_box("タイトル", "さくら")
        self.assertIn("01.mid", reader.box("ファイル名"))
        self.assertIn("MIDI", reader.box("ファイル情報"))
        self.assertIn("トラック数： 1", reader.box("詳細"))

    def test_the_toolkit_has_nothing_to_complain_about(self):
        process = self.load()
        press("Down")
        until_equal(reader.selected, [1], "the second row selected")
        press("ctrl+q")
        until(lambda: process.poll() is not None, "the end of the program")
        self.assertEqual(self.program.errors, "")

    def test_the_boxes_follow_the_selected_row(self):
        self.load()
        press("Down", "Down")
        until_equal(reader.selected, [2], "the third row selected")
        reader.wait_for_box("リネーム名", "曲 03")
        reader.wait_for_box("タイトル", "荒城の月")
        self.assertIn("曲 03.mp3", reader.box("ファイル名"))
        self.assertIn("MP3", reader.box("ファイル情報"))
        press("Up")
        reader.wait_for_box("リネーム名", "02")

    def test_renames_to_titles_and_applies(self):
        self.load()
        press("ctrl+t")
        self.assertEqual(answer("タイトルにリネーム", _TITLES_QUESTION), ["OK", "キャンセル"])
        reader.wait_for_names(["さくら", "Greensleeves", "荒城の月"])
        self.assertEqual([row.name.endswith(reader.PENDING) for row in reader.rows()], [True] * 3)
        self.assertEqual(self.names(), ["01.mid", "02.mid", "曲 03.mp3"])
        press("ctrl+s")
        answer("ファイルに適応", _APPLY_QUESTION)
        answer("ファイルに適応", "3 個のファイルを適応しました\nエラーでスキップされたファイルはありません")
        self.assertEqual(self.names(), ["Greensleeves.mid", "さくら.mid", "荒城の月.mp3"])
        until_equal(lambda: [row.checked for row in reader.rows()], [False] * 3, "the rows unchecked")
        self.assertEqual(
            [os.path.basename(row.location) for row in reader.rows()],
            ["さくら.mid", "Greensleeves.mid", "荒城の月.mp3"],
        )
        self.assertIn("さくら.mid", reader.box("ファイル名"))

    def test_a_question_that_is_declined_changes_nothing(self):
        self.load()
        press("ctrl+t")
        answer("タイトルにリネーム", _TITLES_QUESTION, "Escape")
        self.focus_rename_box()
        write("other")
        reader.wait_for_names(["other", "02", "曲 03"])
        press("ctrl+s")
        answer("ファイルに適応", _APPLY_QUESTION, "Escape")
        until_equal(display.active_title, TITLE, "the window in front")
        self.assertIsNone(reader.dialog())
        self.assertEqual(self.names(), ["01.mid", "02.mid", "曲 03.mp3"])
        self.assertEqual([row.checked for row in reader.rows()], [True] * 3)

    def test_enter_in_the_rename_box_walks_down(self):
        self.load()
        self.focus_rename_box()
        write("alpha")
        press("Return")
        reader.wait_for_box("リネーム名", "02")
        self.assertEqual(reader.selected(), [1])
        write("beta")  # replaces the whole text, which is selected
        press("Return")
        reader.wait_for_box("リネーム名", "曲 03")
        reader.wait_for_names(["alpha", "beta", "曲 03"])
        self.assertTrue(reader.rename_box_has_focus())
        press("ctrl+s")
        answer("ファイルに適応", _APPLY_QUESTION)
        answer("ファイルに適応", "3 個のファイルを適応しました")
        self.assertEqual(self.names(), ["alpha.mid", "beta.mid", "曲 03.mp3"])

    def test_enter_plays_the_row_and_the_file_is_renamed_while_it_plays(self):
        (self.files / "00.wav").write_bytes(samples.wave(20000))
        self.program.start_and_show(self.files)
        reader.wait_for_names(["00", "01", "02", "曲 03"])
        until(reader.list_has_focus, "the list focused")
        self.assertEqual(reader.playing_time(), "00:00 / 00:00")
        press("Return")
        until_equal(reader.playing_time, "00:01 / 00:20", "the first second")
        until_equal(reader.playing_time, "00:02 / 00:20", "the next one")
        self.focus_rename_box()
        write("x")
        press("ctrl+s")
        answer("ファイルに適応", _APPLY_QUESTION)
        answer("ファイルに適応", "4 個のファイルを適応しました\nエラーでスキップされたファイルはありません")
        self.assertIn("x.wav", self.names())
        self.assertEqual(reader.playing_time(), "00:00 / 00:00")

    def test_f2_edits_the_label(self):
        self.load()
        press("Down", "F2")
        until(lambda: reader.list_has_focus() is False, "the label editor")
        press("ctrl+a")
        write("label")
        press("Return")
        reader.wait_for_names(["01", "label", "曲 03"])
        reader.wait_for_box("リネーム名", "label")
        until(reader.list_has_focus, "the list focused")
        press("F2")
        until(lambda: reader.list_has_focus() is False, "the label editor again")
        write("dropped")
        press("Escape")
        until(reader.list_has_focus, "the list focused again")
        self.assertEqual([row.name for row in reader.rows()], ["01", "label" + reader.PENDING, "曲 03"])
        self.assertEqual(self.names(), ["01.mid", "02.mid", "曲 03.mp3"])

    def test_a_click_on_a_header_sorts(self):
        self.load()
        display.click(*reader.header_centre("タイトル"))
        reader.wait_for_names(["曲 03", "01", "02"])
        display.click(*reader.header_centre("リネーム名"))  # every click reverses the order
        reader.wait_for_names(["01", "02", "曲 03"])
        self.assertEqual(self.names(), ["01.mid", "02.mid", "曲 03.mp3"])

    def test_space_toggles_the_check(self):
        self.load()
        press("Down", "space")
        until_equal(lambda: [row.checked for row in reader.rows()], [True, False, True], "one row unchecked")
        press("space")
        until_equal(lambda: [row.checked for row in reader.rows()], [True] * 3, "it is checked again")

    def test_unchecked_rows_are_not_applied(self):
        self.load()
        press("space", "ctrl+shift+t")
        answer("タイトルにリネーム", "全アイテムのリネーム名を、それぞれのタイトルに変更します")
        press("ctrl+s")
        answer("ファイルに適応", _APPLY_QUESTION)
        answer("ファイルに適応", "2 個のファイルを適応しました")
        self.assertEqual(self.names(), ["01.mid", "Greensleeves.mid", "荒城の月.mp3"])
        self.assertEqual(os.path.basename(reader.rows()[0].location), "01.mid")

    def test_shift_f10_opens_the_row_menu(self):
        self.load()
        press("Down", "shift+F10")
        menu = until(reader.open_menu, "the row menu")
        self.assertEqual(menu[1:4], ["リネーム名の変更(E)", "タイトルにリネーム(T)", "元に戻す(Z)"])
        self.assertEqual(menu[-1], "リストから削除(L)")
        press("t")
        reader.wait_for_names(["01", "Greensleeves", "曲 03"])
        reader.wait_for_box("リネーム名", "Greensleeves")

    def test_a_right_click_opens_the_menu_of_its_row(self):
        self.load()
        display.click(*reader.cell_centre(2, "リネーム名"), button=3)
        until(reader.open_menu, "the row menu")
        until_equal(reader.selected, [2], "the clicked row selected")
        press("l")
        reader.wait_for_names(["01", "02"])
        self.assertEqual(self.names(), ["01.mid", "02.mid", "曲 03.mp3"])

    def test_access_keys_open_the_menus(self):
        process = self.load()
        press("alt+f")
        menu = until(reader.open_menu, "the file menu")
        self.assertEqual(menu[0], "フォルダ参照(O)...")
        press("x")
        self.assertEqual(self.program.status(process), 0)

    def test_a_dropped_folder_is_loaded(self):
        self.program.start_and_show()
        self.assertEqual(until(lambda: [reader.rows()], "the list"), [[]])
        target = reader.list_centre()
        self.other_window(self.files)
        display.drag((drag_source.SIZE // 2, drag_source.SIZE // 2), target)
        reader.wait_for_names(["01", "02", "曲 03"])
        self.assertEqual(reader.rows()[2].location, str(self.files / "曲 03.mp3"))

    def test_a_later_instance_brings_the_minimised_window_back(self):
        first = self.load()
        display.minimise(display.visible_windows(TITLE)[0])
        until(lambda: not display.visible_windows(TITLE), "the window minimised")
        self.assertEqual(self.program.status(self.program.start(), patience=3), 0)
        until_equal(display.active_title, TITLE, "the window in front")
        self.assertEqual(len(display.visible_windows(TITLE)), 1)
        self.assertIsNone(first.poll())
        reader.wait_for_names(["01", "02", "曲 03"])

    def test_a_later_instance_that_reaches_no_session_bus_brings_the_window_forward(self):
        first = self.load()
        self.other_window()
        later = self.program.start(DBUS_SESSION_BUS_ADDRESS="unix:path=/nowhere")
        self.assertEqual(self.program.status(later, patience=3), 0)
        until_equal(display.active_title, TITLE, "the window in front")
        self.assertEqual(len(display.visible_windows(TITLE)), 1)
        self.assertIsNone(first.poll())

    def test_a_later_instance_loads_nothing_and_leaves_the_settings_alone(self):
        self.load()
        other = self.files.parent / "other"
        other.mkdir()
        (other / "z.mid").write_bytes((self.files / "01.mid").read_bytes())
        self.assertFalse(self.program.settings.exists())
        self.assertEqual(self.program.status(self.program.start(other), patience=3), 0)
        until_equal(display.active_title, TITLE, "the window in front")
        self.assertFalse(self.program.settings.exists())
        self.assertEqual([row.name for row in reader.rows()], ["01", "02", "曲 03"])

    def test_a_later_instance_brings_the_open_dialog_forward(self):
        first = self.load()
        press("ctrl+t")
        reader.wait_for_dialog(_TITLES_QUESTION)
        self.other_window()
        self.assertEqual(self.program.status(self.program.start(), patience=3), 0)
        answer("タイトルにリネーム", _TITLES_QUESTION)
        reader.wait_for_names(["さくら", "Greensleeves", "荒城の月"])
        self.assertIsNone(first.poll())

    def assert_ended_and_saved(self, process):
        self.assertEqual(self.program.status(process), 0)
        self.assertIn(b"WindowHeight=", self.program.settings.read_bytes())

    def test_a_kill_and_the_end_of_the_session_close_the_window_and_save_the_settings(self):
        for number in (signal.SIGTERM, signal.SIGHUP):
            with self.subTest(number):
                self.program.settings.unlink(missing_ok=True)
                process = self.load()
                process.send_signal(number)
                self.assert_ended_and_saved(process)

    def test_a_kill_cancels_a_question_and_closes_the_window(self):
        process = self.load()
        press("ctrl+t")
        reader.wait_for_dialog(_TITLES_QUESTION)
        process.send_signal(signal.SIGTERM)
        self.assert_ended_and_saved(process)

    def test_a_kill_closes_whatever_is_open(self):
        openers = {
            "ctrl+e": lambda: display.active_title() != TITLE,  # a dialog of our own
            "ctrl+o": lambda: "フォルダを選択してください" in display.active_title(),  # and one of the toolkit's
            "shift+F10": reader.open_menu,
            "F2": lambda: reader.list_has_focus() is False,  # the label editor
        }
        for key, is_open in openers.items():
            with self.subTest(key):
                self.program.settings.unlink(missing_ok=True)
                process = self.load()
                press(key)
                until(is_open, "what the key opens")
                process.send_signal(signal.SIGTERM)
                self.assert_ended_and_saved(process)

    def test_a_kill_while_a_file_is_copied_leaves_nothing_of_the_copy(self):
        target = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="quillon-outside-", dir="/dev/shm")))
        large = self.files / "large.wav"
        with large.open("wb") as file:
            file.truncate(16 << 30)  # a hole: reading it takes seconds, and nothing is written
        if target.stat().st_dev == large.stat().st_dev:
            self.skipTest("/dev/shm is on the same volume")
        process = self.program.start_and_show(self.files)
        reader.wait_for_names(["01", "02", "large", "曲 03"])
        press("ctrl+m")
        until_equal(display.active_title, "ファイルの移動先フォルダを選択してください", "the dialog in front")
        write(str(target))
        until(lambda: (reader.dialog_entry() or "").rstrip("/") == str(target), "the path in the dialog")
        press("Return")
        until(lambda: [name for name in os.listdir(target) if name.startswith(".quillon-")], "the copy begun")
        process.send_signal(signal.SIGTERM)
        self.assert_ended_and_saved(process)
        self.assertEqual(sorted(os.listdir(target)), ["01.mid", "02.mid"])
        self.assertEqual(self.names(), ["large.wav", "曲 03.mp3"])

    def test_what_the_command_line_asks_for_is_told_in_a_box_where_it_cannot_be_written(self):
        for word, text, status in (("--nonsense", "--nonsense: このような指定はできません", 2), ("--help", "使い方: ", 0)):
            with self.subTest(word):
                process = self.program.start_where_nothing_can_be_written(word)
                self.assertEqual(answer(TITLE, text), ["OK"])
                self.assertEqual(self.program.status(process), status)

    def test_damaged_settings_are_told_and_left_alone(self):
        damaged = b"[Player]\r\nRepeat=40000\r\n"
        self.program.settings.write_bytes(damaged)
        process = self.program.start(self.files)
        self.assertEqual(answer("初期化エラー", _INITIALISATION_ERROR), ["OK"])
        self.assertEqual(self.program.status(process), 1)
        self.assertEqual(display.visible_windows(TITLE), [])
        self.assertEqual(self.program.settings.read_bytes(), damaged)

    def test_settings_that_cannot_be_read_are_reported_and_not_changed(self):
        too_large = b"\n" * (1024 * 1024 + 1)
        self.program.settings.write_bytes(too_large)
        process = self.program.start(self.files)
        self.assertEqual(answer("初期化エラー", _INITIALISATION_ERROR), ["OK"])
        self.assertEqual(self.program.status(process), 1)
        self.assertEqual(self.program.settings.read_bytes(), too_large)

    def test_place_and_column_widths_survive_a_restart(self):
        process = self.load()
        [window] = display.visible_windows(TITLE)
        display.xdotool("windowmove", window, 111, 77, "windowsize", window, 800, 560)
        until_equal(lambda: display.geometry(window)[2:], (800, 560), "the window's size")
        left, top, width, height = reader.header_extents("リネーム名")
        edge = (left + width - 1, top + height // 2)
        display.drag(edge, (edge[0] + 60, edge[1]))
        until(lambda: reader.header_extents("リネーム名")[2] >= width + 40, "a wider column")
        place, column = display.geometry(window), reader.header_extents("リネーム名")[2]
        self.assertEqual(self.program.close_window(process), 0)
        self.load()
        [window] = display.visible_windows(TITLE)
        until_equal(lambda: display.geometry(window), place, "the window's place")
        until_equal(lambda: reader.header_extents("リネーム名")[2], column, "the column's width")

    def test_larger_text_makes_the_window_and_its_columns_larger(self):
        process = self.load()
        [window] = display.visible_windows(TITLE)
        width, height = display.geometry(window)[2:]
        column = reader.header_extents("リネーム名")[2]
        self.assertEqual(self.program.close_window(process), 0)
        before = self.program.settings.read_bytes()
        self.program.settings.unlink()
        process = self.load(GDK_DPI_SCALE="1.5")
        [window] = display.visible_windows(TITLE)
        frame = 40  # the height of the window manager's frame, which does not change
        large = display.geometry(window)[2:]
        self.assertAlmostEqual(large[0], 1.5 * width, delta=frame)
        self.assertAlmostEqual(large[1], 1.5 * height, delta=frame)
        self.assertAlmostEqual(reader.header_extents("リネーム名")[2], 1.5 * column, delta=4)
        self.assertEqual(self.program.close_window(process), 0)

        def sizes(settings):
            return [line for line in settings.splitlines() if b"_Width=" in line or b"WindowHeight=" in line]

        self.assertEqual(sizes(self.program.settings.read_bytes()), sizes(before))

    def test_files_and_folders_on_the_command_line(self):
        single = self.program.folder / "ひとつ だけ %20.mid"
        single.write_bytes(samples.midi("春の小川"))
        self.program.start_and_show(single, self.files)
        reader.wait_for_names(["ひとつ だけ %20", "01", "02", "曲 03"])
        self.assertEqual(reader.rows()[0].title, "春の小川")
        self.assertEqual(reader.rows()[0].location, str(single))

    def browser(self):
        """Sets a fake browser as the desktop's default; returns the file to which it writes what it opens."""
        opened = self.program.folder / "opened"
        script = self.program.folder / "browser"
        script.write_text(f'#!/bin/sh\nprintf %s "$1" >"{opened}.new" && mv "{opened}.new" "{opened}"\n')
        script.chmod(0o755)
        applications = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "applications"
        applications.mkdir(parents=True, exist_ok=True)
        kinds = "text/html;x-scheme-handler/https;"
        (applications / "browser.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Browser\nExec={script} %u\nMimeType={kinds}inode/directory;\n"
        )
        defaults = applications / "mimeapps.list"
        entries = "".join(f"{kind}=browser.desktop\n" for kind in kinds.rstrip(";").split(";"))
        defaults.write_text(f"[Default Applications]\n{entries}")
        self.addCleanup(shutil.rmtree, applications)
        return opened

    def test_f1_opens_the_help_pages(self):
        opened = self.browser()
        (self.program.home / "help").symlink_to(self.program.help)
        self.program.start_and_show()
        press("F1")
        until(opened.exists, "the page opened")
        page = urllib.parse.unquote(urllib.parse.urlparse(opened.read_text()).path)
        self.assertEqual(page, str(self.program.home / "help" / "index.html"))
        self.assertIn("Quillon", pathlib.Path(page).read_text(encoding="utf-8"))

    def test_without_help_pages_f1_shows_a_message(self):
        self.program.start_and_show()
        press("F1")
        answer("ヘルプの表示", "ヘルプファイルが開けませんでした")

    def test_the_version_box_opens_the_web_address(self):
        opened = self.browser()
        self.program.start_and_show()
        press("alt+h")
        until(reader.open_menu, "the help menu")
        press("a")
        until_equal(display.active_title, "バージョン情報", "the version box in front")
        press("shift+Tab", "shift+Tab", "Return")
        until(opened.exists, "the address opened")
        self.assertTrue(opened.read_text().startswith("https://"), opened.read_text())

    def test_the_folder_list_opens_a_folder(self):
        opened = self.browser()
        defaults = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "applications" / "mimeapps.list"
        defaults.write_text("[Default Applications]\ninode/directory=browser.desktop\n")
        self.load()
        press("ctrl+d")
        until_equal(display.active_title, "フォルダ一覧", "the folder list in front")
        press("Return")
        until(opened.exists, "the folder opened")
        folder = urllib.parse.unquote(urllib.parse.urlparse(opened.read_text()).path)
        self.assertEqual(folder.rstrip("/"), str(self.files))

    def test_reset_and_quit_deletes_the_settings(self):
        self.program.settings.write_bytes(b"[List]\r\nLoadChk=0\r\n")
        process = self.load()
        self.assertEqual([row.checked for row in reader.rows()], [False] * 3)
        press("alt+f")
        until(reader.open_menu, "the file menu")
        press("d")
        answer("設定をデフォルトに戻して終了", "設定をすべてデフォルトに戻して終了します")
        self.assertEqual(self.program.status(process), 0)
        self.assertFalse(self.program.settings.exists())

    def test_an_input_methods_enter_stays_in_the_rename_box(self):
        self.load(**_SIMPLE_INPUT_METHOD)
        self.focus_rename_box()
        press(*_HIRAGANA_A, "Return")
        reader.wait_for_box("リネーム名", "あ")
        press("x")  # after Return: if the editing went on, this would be in another row
        reader.wait_for_box("リネーム名", "あx")
        self.assertEqual(reader.selected(), [0])
        press("Return")
        reader.wait_for_box("リネーム名", "02")
        reader.wait_for_names(["あx", "02", "曲 03"])

    def test_an_input_methods_enter_stays_in_the_label_editor(self):
        self.load(**_SIMPLE_INPUT_METHOD)
        press("F2")
        until(lambda: reader.list_has_focus() is False, "the label editor")
        press("ctrl+a", *_HIRAGANA_A, "Return", "x", "Return")
        reader.wait_for_names(["あx", "02", "曲 03"])
        until(reader.list_has_focus, "the list focused")

    def test_opens_a_file_of_the_last_folder(self):
        self.program.settings.write_text(f"[System]\r\nDirPath={self.files}/\r\n", encoding="cp932")
        self.program.start_and_show()
        press("ctrl+shift+o")
        until_equal(display.active_title, "ファイルを開く", "the dialog in front")
        display.click(*until(lambda: reader.dialog_item_centre("曲 03.mp3"), "the file in the dialog"))
        press("Return")
        reader.wait_for_no_dialog()
        reader.wait_for_names(["曲 03"])

    def test_opens_a_folder_by_its_path(self):
        path = self.program.folder / "plain"  # a path that can be typed
        path.mkdir()
        (path / "one.mid").write_bytes(samples.midi("One"))
        self.program.start_and_show()
        press("ctrl+o")
        caption = "リネームするファイルが格納されているフォルダを選択してください"
        until_equal(display.active_title, caption, "the dialog in front")
        write(str(path))
        until(lambda: (reader.dialog_entry() or "").rstrip("/") == str(path), "the path in the dialog")
        press("Return")
        reader.wait_for_no_dialog()
        reader.wait_for_names(["one"])

    def test_the_confirming_button_says_what_the_folder_is_for(self):
        target = self.program.folder / "to"
        target.mkdir()
        self.load()
        press("ctrl+o")
        caption = "リネームするファイルが格納されているフォルダを選択してください"
        until_equal(display.active_title, caption, "the dialog in front")
        self.assertNotIn("移動", until(reader.dialog, "the dialog read")[1])
        press("Escape")
        reader.wait_for_no_dialog()
        press("ctrl+m")
        until_equal(display.active_title, "ファイルの移動先フォルダを選択してください", "the dialog in front")
        self.assertIn("移動", until(reader.dialog, "the dialog read")[1])
        write(str(target))
        until(lambda: (reader.dialog_entry() or "").rstrip("/") == str(target), "the path in the dialog")
        press("Return")
        answer("ファイル移動", "3 個のファイルの移動が完了しました")
        self.assertEqual(sorted(os.listdir(target)), ["01.mid", "02.mid", "曲 03.mp3"])

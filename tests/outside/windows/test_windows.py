"""A user's actions on Windows, under Wine: keys, clicks and drops, checked in the windows and on the disk."""

import os
import pathlib
import subprocess
import sys
import unittest

import display
import drag_source
import samples
from display import press, write
from program import TITLE
from wait import until, until_equal
from windows.wine import Wine, WineProgram, windows_path

_TITLES_QUESTION = "チェックアイテムのリネーム名を、それぞれのタイトルに変更します"
_APPLY_QUESTION = "チェックアイテムのリネーム名をファイルに適応します"
_INITIALISATION_ERROR = [
    "設定ファイルが壊れている可能性があります",
    "再度起動してください",
    "それでも初期化エラーが出る場合はヘルプを参照してください",
]


class Windows(unittest.TestCase):
    built = None  # the folder of the built program
    script = None  # the script that runs a program under Wine

    @classmethod
    def setUpClass(cls):
        cls.wine = Wine(cls.script, pathlib.Path(cls.built) / "WindowReader.exe")
        cls.addClassCleanup(cls.wine.close)

    def setUp(self):
        self.program = WineProgram(self.built, self.wine)
        self.addCleanup(self.program.close)
        self.files = samples.fill(self.program.folder / "曲 と 音")

    def names(self):
        return sorted(os.listdir(self.files))

    def load(self):
        """Starts the program with the sample folder."""
        process = self.program.start_and_show(self.files)
        self.wine.wait_for_names(["01", "02", "曲 03"])
        until(lambda: self.wine.list()["focused"], "the list focused")
        return process

    def answer(self, caption, text, key="Return"):
        """Waits for the dialog, presses a key in it and waits for it to close; returns its texts and buttons."""
        texts = self.wine.wait_for_dialog(caption, text)
        until_equal(display.active_title, caption, "the dialog in front")
        press(key)
        until(lambda: text not in str(self.wine.dialog()), f"“{text}” closed")
        return texts

    def other_window(self, *paths):
        """Opens another program's window, which takes the focus."""
        script = pathlib.Path(drag_source.__file__)
        process = subprocess.Popen([sys.executable, "-B", script, *paths], stdin=subprocess.DEVNULL)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        until_equal(display.active_title, drag_source.TITLE, "the other window in front")

    def test_starts_with_a_folder(self):
        self.load()
        rows = self.wine.list()["rows"]
        self.assertEqual([row[1] for row in rows], ["さくら", "Greensleeves", "荒城の月"])
        self.assertEqual([row[3] for row in rows], ["MIDI", "MIDI", "MP3"])
        self.assertEqual([row[5] for row in rows], [windows_path(self.files / name) for name in self.names()])
        self.assertEqual(self.wine.list()["selected"], [0])
        self.wine.wait_for_box("リネーム名", "01")
        self.wine.wait_for_box("タイトル", "さくら")
        self.assertIn("01.mid", self.wine.box("ファイル名"))
        self.assertIn("MIDI", self.wine.box("ファイル情報"))
        self.assertIn("トラック数： 1", self.wine.box("詳細"))
        panels = self.wine.panels()
        self.assertEqual(panels[:4], ["手動適応モード", "選択： 01.mid", "未適応： 0", "チェック数： 3"])
        self.assertRegex(panels[4], "^アイテム数： +3$")

    def test_the_boxes_follow_the_selected_row(self):
        self.load()
        press("Down", "Down")
        self.wine.wait_for_box("リネーム名", "曲 03")
        self.wine.wait_for_box("タイトル", "荒城の月")
        self.assertEqual(self.wine.list()["selected"], [2])
        self.assertEqual(self.wine.panels()[1], "選択： 曲 03.mp3")

    def test_renames_to_titles_and_applies(self):
        self.load()
        press("ctrl+t")
        texts = self.answer("タイトルにリネーム", _TITLES_QUESTION)
        self.assertEqual(texts[-2:], ["OK", "キャンセル"])
        self.wine.wait_for_names(["さくら", "Greensleeves", "荒城の月"])
        self.assertEqual(self.names(), ["01.mid", "02.mid", "曲 03.mp3"])
        press("ctrl+s")
        texts = self.answer("ファイルに適応", _APPLY_QUESTION)
        self.assertEqual(texts[-2:], ["はい(&Y)", "いいえ(&N)"])
        texts = self.answer("ファイルに適応", "3 個のファイルを適応しました")
        self.assertIn("エラーでスキップされたファイルはありません", texts[0])
        self.assertEqual(self.names(), ["Greensleeves.mid", "さくら.mid", "荒城の月.mp3"])
        until_equal(lambda: self.wine.panels()[3], "チェック数： 0", "the rows unchecked")
        locations = [row[5] for row in self.wine.list()["rows"]]
        expected = ["さくら.mid", "Greensleeves.mid", "荒城の月.mp3"]
        self.assertEqual(locations, [windows_path(self.files / name) for name in expected])

    def test_a_question_that_is_declined_changes_nothing(self):
        self.load()
        press("ctrl+t")
        self.answer("タイトルにリネーム", _TITLES_QUESTION, "Escape")
        press("ctrl+s")
        self.answer("ファイルに適応", _APPLY_QUESTION, "n")
        until_equal(display.active_title, TITLE, "the window in front")
        self.assertIsNone(self.wine.dialog())
        self.assertEqual(self.names(), ["01.mid", "02.mid", "曲 03.mp3"])
        self.assertEqual([row[0] for row in self.wine.list()["rows"]], ["01", "02", "曲 03"])
        self.assertEqual(self.wine.panels()[3], "チェック数： 3")

    def test_enter_in_the_rename_box_walks_down(self):
        self.load()
        press("Tab")
        until(lambda: not self.wine.list()["focused"], "the rename box focused")
        press("Home", "shift+End")
        write("alpha")
        press("Return")
        self.wine.wait_for_box("リネーム名", "02")
        write("beta")  # replaces the whole text, which is selected
        press("Return")
        self.wine.wait_for_box("リネーム名", "曲 03")
        self.wine.wait_for_names(["alpha", "beta", "曲 03"])
        self.assertEqual(self.wine.list()["selected"], [2])
        press("ctrl+s")
        self.answer("ファイルに適応", _APPLY_QUESTION)
        self.answer("ファイルに適応", "3 個のファイルを適応しました")
        self.assertEqual(self.names(), ["alpha.mid", "beta.mid", "曲 03.mp3"])

    def test_f2_edits_the_label(self):
        self.load()
        press("Down", "F2")
        until(lambda: self.wine.list()["editing"], "the label editor")
        write("label")
        press("Return")
        self.wine.wait_for_names(["01", "label", "曲 03"])
        self.wine.wait_for_box("リネーム名", "label")
        self.assertFalse(self.wine.list()["editing"])
        self.assertEqual(self.names(), ["01.mid", "02.mid", "曲 03.mp3"])

    def test_shift_del_removes_the_row_from_the_list(self):
        self.load()
        press("shift+Delete")
        self.wine.wait_for_names(["02", "曲 03"])
        self.assertEqual(self.names(), ["01.mid", "02.mid", "曲 03.mp3"])
        self.assertRegex(self.wine.panels()[4], "^アイテム数： +2$")

    def test_del_deletes_the_file(self):
        # Not to the recycle bin, which under Wine is the real trash of the user who runs this.
        self.program.settings.write_bytes(b"[List]\r\nDeltoTrashBox=False\r\n")
        self.load()
        press("Delete")
        self.answer("ファイル削除", "このファイルを完全に削除してもよろしいですか")
        self.wine.wait_for_names(["02", "曲 03"])
        self.assertEqual(self.names(), ["02.mid", "曲 03.mp3"])

    def test_the_confirming_button_says_what_the_folder_is_for(self):
        target = self.program.folder / "to"
        target.mkdir()
        self.load()
        press("ctrl+o")
        until(lambda: "開く(&O)" in str(self.wine.dialog()), "the dialog with its usual button")  # Wine has its own title
        press("Escape")
        until(lambda: self.wine.dialog() is None, "the dialog closed")
        press("ctrl+m")
        texts = self.wine.wait_for_dialog("ファイルの移動先フォルダを選択してください", "移動")
        self.assertNotIn("開く(&O)", texts)
        write(windows_path(target))
        press("Return")
        self.answer("ファイル移動", "3 個のファイルの移動が完了しました")
        self.assertEqual(sorted(os.listdir(target)), ["01.mid", "02.mid", "曲 03.mp3"])

    def test_space_toggles_the_check(self):
        self.load()
        press("space")
        until_equal(lambda: self.wine.panels()[3], "チェック数： 2", "a row unchecked")
        press("space")
        until_equal(lambda: self.wine.panels()[3], "チェック数： 3", "it is checked again")

    def test_a_click_on_a_header_sorts(self):
        self.load()
        left, top, _, height = self.wine.control("SysHeader32")["place"]
        names, titles, *_ = self.wine.list()["widths"]
        display.click(left + names + titles // 2, top + height // 2)
        self.wine.wait_for_names(["曲 03", "01", "02"])
        display.click(left + names // 2, top + height // 2)  # every click reverses the order
        self.wine.wait_for_names(["01", "02", "曲 03"])

    def test_a_dropped_folder_is_loaded(self):
        self.program.start_and_show()
        left, top, width, height = until(lambda: self.wine.control("SysListView32"), "the list")["place"]
        self.other_window(self.files)
        middle = drag_source.SIZE // 2
        display.drag((middle, middle), (left + width // 2, top + height // 2))
        self.wine.wait_for_names(["01", "02", "曲 03"])

    def test_a_later_instance_brings_the_minimised_window_back(self):
        first = self.load()
        display.minimise(display.visible_windows(TITLE)[0])
        until(lambda: self.wine.main_window()["minimised"], "the window minimised")
        self.assertEqual(self.program.status(self.program.start(), patience=3), 0)
        until(lambda: not self.wine.main_window()["minimised"], "the window restored")
        until_equal(display.active_title, TITLE, "the window in front")
        self.assertEqual(sum(window["text"] == TITLE for window in self.wine.windows()), 1)
        self.assertIsNone(first.poll())

    def test_a_later_instance_brings_the_open_dialog_forward(self):
        first = self.load()
        press("ctrl+t")
        self.wine.wait_for_dialog("タイトルにリネーム", _TITLES_QUESTION)
        notepad = self.program.start_other("notepad")
        until(lambda: self.wine.dialog() is None, "the other window in front")
        self.assertEqual(self.program.status(self.program.start(), patience=3), 0)
        self.wine.wait_for_dialog("タイトルにリネーム", _TITLES_QUESTION)  # among Wine's windows; it leaves the keys
        notepad.kill()
        self.answer("タイトルにリネーム", _TITLES_QUESTION)
        self.wine.wait_for_names(["さくら", "Greensleeves", "荒城の月"])
        self.assertIsNone(first.poll())

    def test_damaged_settings_are_reported_and_not_changed(self):
        damaged = b"[Player]\r\nRepeat=40000\r\n"
        self.program.settings.write_bytes(damaged)
        process = self.program.start(self.files)
        texts = self.answer("初期化エラー", _INITIALISATION_ERROR[0])
        self.assertEqual("\n".join(texts).replace("\r", "").split("\n"), [*_INITIALISATION_ERROR, "OK"])
        self.assertEqual(self.program.status(process), 1)
        self.assertEqual(self.wine.windows(), [])
        self.assertEqual(self.program.settings.read_bytes(), damaged)

    def test_place_and_column_widths_survive_a_restart(self):
        process = self.load()
        [window] = display.visible_windows(TITLE)
        before = self.wine.main_window()["place"]
        display.xdotool("windowmove", window, 111, 77, "windowsize", window, 800, 560)
        until(lambda: self.wine.main_window()["place"][2] > before[2], "the window's size")
        width = self.wine.list()["widths"][0]
        left, top, _, height = self.wine.control("SysHeader32")["place"]
        edge = (left + width - 1, top + height // 2)
        display.drag(edge, (edge[0] + 60, edge[1]))
        until(lambda: self.wine.list()["widths"][0] >= width + 40, "a wider column")
        place, widths = self.wine.main_window()["place"], self.wine.list()["widths"]
        self.assertEqual(self.program.close_window(process), 0)
        self.load()
        until_equal(lambda: self.wine.main_window()["place"], place, "the window's place")
        self.assertEqual(self.wine.list()["widths"], widths)

    def test_files_and_folders_on_the_command_line(self):
        single = self.program.folder / "ひとつ だけ %20.mid"
        single.write_bytes(samples.midi("春の小川"))
        self.program.start_and_show(single, self.files)
        self.wine.wait_for_names(["ひとつ だけ %20", "01", "02", "曲 03"])
        self.assertEqual(self.wine.list()["rows"][0][1], "春の小川")

    def test_reset_and_quit_deletes_the_settings(self):
        self.program.settings.write_bytes(b"[List]\r\nLoadChk=0\r\n")
        process = self.load()
        self.assertEqual(self.wine.panels()[3], "チェック数： 0")
        press("alt+f", "d")
        self.answer("設定をデフォルトに戻して終了", "設定をすべてデフォルトに戻して終了します")
        self.assertEqual(self.program.status(process), 0)
        self.assertFalse(self.program.settings.exists())

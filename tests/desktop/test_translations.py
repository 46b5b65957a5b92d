"""The desktop's words in other languages: all of them, and nothing lost on the way."""
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as tree

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = ROOT / "apps/desktop/translations"
# A class that Qt knows, a layout, or what the host says: words under another name are never found.
CONTEXT = re.compile(r"QObject|Words|autonotify::desktop::[A-Z]\w+|frm\w+")
PLACES = re.compile(r"%(?:L?\d|L?n|[vmp]\b)|<[^>]*>|\*\.\w+|\n")
ENDS = (":", "...", "?", ".")


def messages(file):
    for context in tree.parse(file).iter("context"):
        for message in context.iter("message"):
            yield context.findtext("name"), message


def words_of(file):
    return {(context, message.findtext("source"), message.findtext("comment"), message.get("numerus"))
            for context, message in messages(file)}


def forms(message):
    translation = message.find("translation")
    return [form.text for form in translation.iter("numerusform")] or [translation.text]


class Translations(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.files = sorted(FOLDER.glob("*.ts"))

    def test_they_have_the_words_of_the_program(self):
        with tempfile.TemporaryDirectory() as folder:
            for file in self.files:
                shutil.copy(file, folder)
            told = subprocess.run([ROOT / "tools/update_translations", folder], check=True,
                                  capture_output=True, text=True)
            self.assertNotIn("Q_OBJECT", told.stdout + told.stderr)
            for file in self.files:
                self.assertEqual(words_of(file), words_of(pathlib.Path(folder) / file.name))

    def test_every_word_is_translated_whole(self):
        self.assertGreater(len(words_of(FOLDER / "hvnotify_fr.ts")), 300)
        for file in self.files:
            for context, message in messages(file):
                source = message.findtext("source")
                self.assertRegex(context, f"^({CONTEXT.pattern})$")
                self.assertIsNone(message.find("translation").get("type"), source)
                for words in forms(message):
                    with self.subTest(file=file.name, source=source):
                        self.look(source, words)

    def look(self, source, words):
        self.assertTrue(words)
        self.assertEqual(sorted(PLACES.findall(source)), sorted(PLACES.findall(words)))
        self.assertEqual(source.count("&"), words.count("&"))
        self.assertEqual([source.endswith(end) for end in ENDS], [words.endswith(end) for end in ENDS])


if __name__ == "__main__":
    unittest.main()

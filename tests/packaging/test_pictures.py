"""The pictures in the documents exist, are PNG files, and stay small."""

import re
import unittest

from support.project import ROOT

PAPERS = [ROOT / "README.md", ROOT / "docs" / "manuel.md"]
LARGEST_BYTES = 150 * 1024


def shown():
    """Every picture that a document shows, with its path."""
    for paper in PAPERS:
        for target in re.findall(r"!\[[^\]]+\]\(([^)]+)\)", paper.read_text(encoding="utf-8")):
            yield (paper.parent / target).resolve()


class Pictures(unittest.TestCase):

    def test_the_documents_show_all_pictures_in_the_folder(self):
        names = sorted({picture.name for picture in shown()})
        self.assertEqual(names, ["fenetre.png", "fiche.png", "liste.png", "recherche.png",
                                 "reprendre.png", "retour.png", "widget.png"])
        kept = sorted(path.name for path in (ROOT / "docs" / "images").iterdir())
        self.assertEqual(kept, names)

    def test_each_picture_is_a_small_png_file(self):
        for picture in shown():
            content = picture.read_bytes()
            self.assertEqual(content[:8], b"\x89PNG\r\n\x1a\n", picture.name)
            self.assertLess(len(content), LARGEST_BYTES, picture.name)

    def test_scripts_screenshots_takes_each_picture(self):
        script = (ROOT / "scripts" / "screenshots").read_text(encoding="utf-8")
        made = set(re.findall(r'publish\("([^"]+)"', script))
        self.assertEqual(made, {picture.name for picture in shown()})


if __name__ == "__main__":
    unittest.main()

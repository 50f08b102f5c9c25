"""The pictures that the papers show are there, are pictures, and stay small."""

import re
import unittest

from support.project import ROOT

PAPERS = [ROOT / "README.md", ROOT / "docs" / "manuel.md"]
LARGEST_BYTES = 150 * 1024


def shown():
    """Every picture that a paper shows, and where it is said to lie."""
    for paper in PAPERS:
        for target in re.findall(r"!\[[^\]]+\]\(([^)]+)\)", paper.read_text(encoding="utf-8")):
            yield (paper.parent / target).resolve()


class Pictures(unittest.TestCase):

    def test_the_papers_show_them_all_and_nothing_else_is_kept(self):
        names = sorted({picture.name for picture in shown()})
        self.assertEqual(names, ["fenetre.png", "fiche.png", "liste.png", "recherche.png",
                                 "reprendre.png", "retour.png", "widget.png"])
        kept = sorted(path.name for path in (ROOT / "docs" / "images").iterdir())
        self.assertEqual(kept, names)

    def test_each_is_a_picture_and_small(self):
        for picture in shown():
            content = picture.read_bytes()
            self.assertEqual(content[:8], b"\x89PNG\r\n\x1a\n", picture.name)
            self.assertLess(len(content), LARGEST_BYTES, picture.name)

    def test_the_script_makes_each_of_them(self):
        script = (ROOT / "scripts" / "screenshots").read_text(encoding="utf-8")
        made = set(re.findall(r'publish\("([^"]+)"', script))
        self.assertEqual(made, {picture.name for picture in shown()})


if __name__ == "__main__":
    unittest.main()

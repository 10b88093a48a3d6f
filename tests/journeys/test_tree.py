"""Journeys through the navigation tree of a large project."""
from desktop import wait_for
from support import JourneyTestCase

WHEEL_DOWN = 5


class TreeTest(JourneyTestCase):
    def test_a_long_name_at_the_lower_edge_lets_the_program_rest(self):
        kestrel = self.kestrel
        files = ["enemy_behaviour_tables.asm" if i == 41 else f"f{i:02}.asm" for i in range(60)]
        kestrel.start(self.lay_out_project("Demo", files))
        kestrel.expand("Demo")
        kestrel.wait_for_rest()
        self.assertEqual(kestrel.rows(), ["Demo", *files])
        self.desktop.point_at(kestrel.row("Demo"))
        for _ in range(6):
            self.desktop.xdotool("click", WHEEL_DOWN)
            kestrel.wait_for_rest()
        self.assertEqual(kestrel.quit(), 0)

#!/usr/bin/python3
"""Writes the sample deck, a short lecture on sorting: tools/make_sample_deck.py [OUT.pptx]

Needs no office program, comes out the same byte for byte, and can be changed in a diff.
"""

import sys
from pathlib import Path

from pptx import (BLUE, GREY, INK, ORANGE, PALE_BLUE, PALE_ORANGE, PALE_TEAL, RED,
                  Slide, TEAL, WHITE, code, paragraph, run, titled, write)


def title_slide():
    slide = Slide(BLUE)
    for i, height in enumerate((18, 44, 27, 71, 35, 58, 88, 12, 64, 50, 80, 97)):
        slide.shape(186 + i * 12, 176 - height, 9, height, colour=ORANGE if i == 6 else "3D6F9E")
    slide.text(26, 42, 250, 26, paragraph(run("Sorting", 66, WHITE, bold=True)), anchor="ctr")
    slide.text(26, 72, 250, 16, paragraph(run("Three ways to put things in order,", 28, PALE_BLUE)), anchor="ctr")
    slide.text(26, 86, 250, 16, paragraph(run("and why none can beat ", 28, PALE_BLUE),
                                          run("n log n", 28, ORANGE, bold=True, italic=True)), anchor="ctr")
    slide.text(26, 160, 150, 12, paragraph(run("Lecture 4 · Algorithms", 18, PALE_BLUE)), anchor="ctr")
    return slide


def problem_slide():
    slide = titled("What is asked", TEAL, 2)
    slide.text(22, 46, 150, 110,
               paragraph(run("Given ", 24), run("n", 24, TEAL, True, True), run(" things that can be compared,", 24), bullet=TEAL, after=10),
               paragraph(run("arrange them so that each is ", 24), run("no greater", 24, TEAL, True), run(" than the next.", 24), bullet=TEAL, after=10),
               paragraph(run("We count ", 24), run("comparisons", 24, RED, True), run(": they are what every method pays for.", 24), bullet=TEAL, after=10),
               paragraph(run("A sort is ", 24), run("stable", 24, TEAL, True), run(" when equal things keep their order.", 24), bullet=TEAL))
    slide.text(196, 52, 120, 10, paragraph(run("before", 18, GREY, italic=True)), anchor="ctr")
    slide.cells(196, 64, (7, 2, 9, 4, 1, 5))
    slide.line(243, 84, 243, 108, TEAL, 1.2, arrow=True)
    slide.text(196, 110, 120, 10, paragraph(run("after", 18, GREY, italic=True)), anchor="ctr")
    slide.cells(196, 122, (1, 2, 4, 5, 7, 9), colours={i: (PALE_TEAL, TEAL) for i in range(6)})
    return slide


def insertion_slide():
    slide = titled("Insertion sort", ORANGE, 3)
    steps = ((7, 2, 9, 4, 1), (2, 7, 9, 4, 1), (2, 7, 9, 4, 1), (2, 4, 7, 9, 1), (1, 2, 4, 7, 9))
    for row, values in enumerate(steps):
        sorted_part = {i: (PALE_ORANGE, INK) for i in range(row + 1)}
        if row + 1 < len(values):
            sorted_part[row + 1] = (ORANGE, WHITE)
        slide.cells(26, 48 + row * 22, values, 17, sorted_part)
        slide.text(124, 48 + row * 22, 50, 17, paragraph(run(f"after step {row}" if row else "at the start", 16, GREY)), anchor="ctr")
    slide.shape(184, 48, 134, 62, [
        paragraph(code("for "), code("i", colour=ORANGE, bold=True), code(" in 1 .. n-1:")),
        paragraph(code("    x = a["), code("i", colour=ORANGE, bold=True), code("]")),
        paragraph(code("    while x < the one before:")),
        paragraph(code("        move that one right")),
        paragraph(code("    put x into the gap"))], colour=WHITE, line=ORANGE, margin=5)
    slide.text(184, 118, 134, 40,
               paragraph(run("The orange card is taken up next, as one sorts a hand of cards.", 20), after=6),
               paragraph(run("Few cards out of place: almost no work.", 20, ORANGE, True)))
    return slide


def cost_slide():
    slide = titled("What insertion sort costs", ORANGE, 4)
    slide.text(22, 46, 296, 12, paragraph(run("In the worst case card ", 24), run("i", 24, ORANGE, True, True),
                                          run(" passes all the cards before it:", 24)), anchor="ctr")
    slide.shape(60, 66, 220, 32, [paragraph(
        run("1 + 2 + 3 + … + (n − 1)  =  ", 32, INK, italic=True, font="Cambria"),
        run("n (n − 1) / 2", 32, RED, True, True, font="Cambria"), align="ctr")], "roundRect", PALE_ORANGE)
    for i in range(12):
        for k in range(i + 1):
            slide.shape(30 + i * 6.2, 164 - k * 5, 5.6, 4.4, colour=ORANGE if i == 11 else "F0B27F")
    slide.text(120, 118, 190, 46,
               paragraph(run("The squares make half of a square of side ", 22), run("n", 22, ORANGE, True, True), run(".", 22), after=8),
               paragraph(run("Twice the cards: ", 22), run("four times", 22, RED, True), run(" the work.", 22)))
    return slide


def merge_slide():
    slide = titled("Merge sort", BLUE, 5)
    levels = (((7, 2, 9, 4),), ((7, 2), (9, 4)), ((2, 7), (4, 9)), ((2, 4, 7, 9),))
    x_of = {1: (61,), 2: (36, 117)}
    for row, groups in enumerate(levels):
        for group, x in zip(groups, x_of[len(groups)]):
            colours = {i: (PALE_TEAL, TEAL) for i in range(len(group))} if row >= 2 else None
            slide.cells(x, 50 + row * 31, group, 16, colours)
    slide.line(88, 67, 56, 80, GREY, 0.7, arrow=True)
    slide.line(104, 67, 136, 80, GREY, 0.7, arrow=True)
    slide.line(56, 129, 88, 142, GREY, 0.7, arrow=True)
    slide.line(136, 129, 104, 142, GREY, 0.7, arrow=True)
    slide.line(54, 98, 54, 111, GREY, 0.7, arrow=True)
    slide.line(136, 98, 136, 111, GREY, 0.7, arrow=True)
    slide.text(196, 50, 122, 110,
               paragraph(run("Split", 26, BLUE, True), run(" in the middle.", 26), bullet=BLUE, after=12),
               paragraph(run("Sort", 26, BLUE, True), run(" each half the same way.", 26), bullet=BLUE, after=12),
               paragraph(run("Merge", 26, TEAL, True), run(": take the smaller of the two first cards, again and again.", 26), bullet=TEAL, after=12),
               paragraph(run("One comparison a card, and stable.", 26, TEAL, True), bullet=TEAL))
    return slide


def recurrence_slide():
    slide = titled("Why merge sort is fast", BLUE, 6)
    slide.shape(60, 46, 220, 26, [paragraph(
        run("T(n)  =  2 · T(n / 2)  +  n", 34, BLUE, True, True, font="Cambria"), align="ctr")], "roundRect", PALE_BLUE)
    for row in range(4):
        count = 2 ** row
        width = 196 / count
        for i in range(count):
            label = [paragraph(run("n" if row == 0 else f"n/{count}", 18, BLUE, True, True, font="Cambria"), align="ctr")]
            slide.shape(24 + i * width, 84 + row * 19, width - 2, 14, label, "roundRect", WHITE, BLUE, 0.5, margin=0)
        slide.text(228, 84 + row * 19, 40, 14, paragraph(run("= n", 22, GREY, italic=True, font="Cambria")), anchor="ctr")
    slide.line(258, 84, 258, 155, ORANGE, 1.2)
    slide.text(264, 100, 56, 40, paragraph(run("log", 26, ORANGE, True, True), run("2", 26, ORANGE, True, baseline=-25000),
                                           run(" n", 26, ORANGE, True, True)),
               paragraph(run("rows of work", 20, ORANGE)), anchor="ctr")
    slide.text(22, 160, 296, 14, paragraph(run("All rows together: ", 26), run("n log n", 26, RED, True, True), run(" comparisons.", 26)), anchor="ctr")
    return slide


def quick_slide():
    slide = titled("Quicksort", RED, 7)
    slide.cells(60, 48, (5, 8, 1, 9, 3, 7, 2), 22, {0: (RED, WHITE)})
    slide.text(240, 48, 80, 22, paragraph(run("choose a ", 22), run("pivot", 22, RED, True)), anchor="ctr")
    slide.line(104, 74, 76, 92, GREY, 0.8, arrow=True)
    slide.line(142, 74, 142, 92, GREY, 0.8, arrow=True)
    slide.line(180, 74, 208, 92, GREY, 0.8, arrow=True)
    slide.cells(42, 95, (1, 3, 2), 22, {i: (PALE_TEAL, TEAL) for i in range(3)})
    slide.cells(131, 95, (5,), 22, {0: (RED, WHITE)})
    slide.cells(176, 95, (8, 9, 7), 22, {i: (PALE_ORANGE, ORANGE) for i in range(3)})
    slide.text(42, 119, 80, 10, paragraph(run("smaller", 18, TEAL, italic=True)), anchor="ctr")
    slide.text(176, 119, 80, 10, paragraph(run("greater", 18, ORANGE, italic=True)), anchor="ctr")
    slide.text(22, 136, 296, 36,
               paragraph(run("Sort both sides the same way; there is nothing to merge.", 22), bullet=RED, after=4),
               paragraph(run("On average ", 22), run("1.39 n log", 22, RED, True, True), run("2", 22, RED, True, baseline=-25000),
                         run(" n", 22, RED, True, True), run("; a bad pivot every time costs ", 22),
                         run("n", 22, RED, True, True), run("2", 22, RED, True, baseline=30000), run(" / 2.", 22, RED, True), bullet=RED))
    return slide


def bound_slide():
    slide = titled("No comparison sort can do better", TEAL, 8)

    def question(x, y, text):
        slide.shape(x - 22, y, 44, 15, [paragraph(run(text, 18, WHITE, True, font="Cambria"), align="ctr")], "roundRect", TEAL, margin=0)

    def answer(x, y, text):
        slide.shape(x - 16, y, 32, 13, [paragraph(run(text, 16, TEAL, True, font="Cambria"), align="ctr")], "roundRect", PALE_TEAL, margin=0)

    for x1, y1, x2, y2 in ((112, 61, 62, 78), (112, 61, 162, 78), (62, 93, 38, 112), (62, 93, 86, 112),
                           (162, 93, 138, 112), (162, 93, 186, 112), (86, 127, 70, 144), (86, 127, 106, 144),
                           (186, 127, 170, 144), (186, 127, 206, 144)):
        slide.line(x1, y1, x2, y2, GREY, 0.6)
    question(112, 46, "a < b ?")
    question(62, 78, "b < c ?")
    question(162, 78, "a < c ?")
    question(86, 112, "a < c ?")
    question(186, 112, "b < c ?")
    answer(38, 112, "a b c")
    answer(138, 112, "b a c")
    answer(70, 144, "a c b")
    answer(106, 144, "c a b")
    answer(170, 144, "b c a")
    answer(206, 144, "c b a")
    slide.text(232, 46, 88, 120,
               paragraph(run("A sort is a tree of questions with a leaf for each of the ", 21), run("n!", 21, TEAL, True, True),
                         run(" orders.", 21), after=12),
               paragraph(run("A tree with that many leaves is at least ", 21), run("log", 21, RED, True, True),
                         run("2", 21, RED, True, baseline=-25000), run(" n!", 21, RED, True, True), run(" deep,", 21), after=12),
               paragraph(run("and that is about ", 21), run("n log", 21, RED, True, True), run("2", 21, RED, True, baseline=-25000),
                         run(" n.", 21, RED, True, True)))
    return slide


def table_slide():
    slide = titled("Side by side", BLUE, 9)
    slide.table(30, 48, (72, 52, 52, 52, 50), 19, (
        ("", "best", "average", "worst", "stable"),
        ("Insertion sort", "n", "n² / 4", "n² / 2", "yes"),
        ("Merge sort", "½ n log n", "n log n", "n log n", "yes"),
        ("Quicksort", "n log n", "1.39 n log n", "n² / 2", "no"),
        ("Lower bound", "n − 1", "n log n", "n log n", "")), 20)
    slide.text(30, 152, 280, 18, paragraph(run("Small or nearly sorted: ", 22), run("insertion", 22, ORANGE, True),
                                           run(".   Must be stable: ", 22), run("merge", 22, BLUE, True),
                                           run(".   In memory, in place: ", 22), run("quick", 22, RED, True), run(".", 22)), anchor="ctr")
    return slide


def end_slide():
    slide = Slide(TEAL)
    for i in range(12):
        slide.shape(186 + i * 12, 176 - 8 * (i + 1), 9, 8 * (i + 1), colour=ORANGE if i == 11 else "4BA6A1")
    slide.text(26, 40, 250, 22, paragraph(run("To try at home", 48, WHITE, bold=True)), anchor="ctr")
    slide.text(26, 72, 176, 90,
               paragraph(run("Sort a pack of cards by each method. Count.", 24, WHITE), bullet=WHITE, after=10),
               paragraph(run("Find an order that is worst for quicksort.", 24, WHITE), bullet=WHITE, after=10),
               paragraph(run("Sort five numbers with seven comparisons.", 24, WHITE), bullet=WHITE))
    return slide


SLIDES = (title_slide, problem_slide, insertion_slide, cost_slide, merge_slide, recurrence_slide, quick_slide, bound_slide,
          table_slide, end_slide)


def main():
    default = Path(__file__).resolve().parent.parent / "assets" / "sample_lecture.pptx"
    write(Path(sys.argv[1]) if len(sys.argv) > 1 else default, [make() for make in SLIDES])


if __name__ == "__main__":
    main()

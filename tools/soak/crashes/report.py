"""The counts of a run of trials."""

_PHASES = ("start", "create", "answer", "between")


def lines(counts):
    """Pairs of label and value."""
    yield "killed", counts["trials"]
    for phase in _PHASES:
        yield f"  in phase \"{phase}\"", counts[f"phase {phase}"]
    for what, label in (("journal", "a journal was left behind"), ("hot", "  that has to be rolled back"),
                        ("torn", "  after part of the database was written")):
        by_phase = ", ".join(f"{phase} {counts[f'{what} {phase}']}" for phase in _PHASES)
        yield label, f"{counts[what]} ({by_phase})"
    yield "killed between the press of an answer or patient and its confirmation", \
        sum(counts[f"fate {fate}"] for fate in ("stored", "on the way", "not stored"))
    yield "  stored completely", counts["fate stored"]
    yield "  stored up to the first of the two saves of a changed answer", counts["fate on the way"]
    yield "  not stored", counts["fate not stored"]
    yield "patients confirmed by the window", counts["confirmed create"]
    yield "answers confirmed by the window", counts["confirmed answer"]
    yield "homes", counts["homes"]
    yield "starts whose window showed the number of waiting patients", counts["windows"]
    yield "patients shown with the answers stored before the kill", counts["shown"]

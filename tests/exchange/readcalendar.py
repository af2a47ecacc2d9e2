"""Prints an iCalendar file as an independent reader understands it: a JSON list of texts for each line.

Without years the entries: uid, first day or time, its length in days, summary, description, HTML, minutes from the
start of its alarms, sequence. Between two years each occurrence: day and summary.
"""
import json
import sys
from datetime import datetime

import icalendar
import recurring_ical_events


def length(event):
    span = event["DTEND"].dt - event["DTSTART"].dt
    return f"{span.total_seconds() / 86400:g}"


def fields(event):
    triggers = [str(alarm["TRIGGER"].dt.total_seconds() / 60) for alarm in event.walk("VALARM")]
    texts = [str(event.get(name, "")) for name in ("SUMMARY", "DESCRIPTION", "X-ALT-DESC")]
    return [event["UID"], event["DTSTART"].dt.isoformat(), length(event), *texts, " ".join(triggers),
            str(event["SEQUENCE"])]


calendar = icalendar.Calendar.from_ical(open(sys.argv[1], "rb").read())
if len(sys.argv) > 2:
    first, last = (int(year) for year in sys.argv[2:])
    events = recurring_ical_events.of(calendar).between(datetime(first, 1, 1), datetime(last, 1, 1))
    lines = sorted([event["DTSTART"].dt.isoformat()[:10], str(event["SUMMARY"])] for event in events)
else:
    lines = [fields(event) for event in calendar.walk("VEVENT")]
for line in lines:
    print(json.dumps(line))

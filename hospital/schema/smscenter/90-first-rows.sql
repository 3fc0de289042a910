insert into SmsCategories (Category, Details, Details2, Remarks) values
    ('APPT', 'You have an appointment.', null, 'APPOINTMENT'),
    ('ATTEND', 'Thank you for visiting us today. We wish you a quick recovery.', null, 'ATTENDANCE')
GO
insert into SmsClinics (ClinicName, Designation) values
    ('(GENERAL)', 'General'),
    ('ANTENATAL', 'Antenatal'),
    ('IMMUNIZATION', 'Immunization'),
    ('DENTAL', 'Dental'),
    ('EYE', 'Eye')
GO
